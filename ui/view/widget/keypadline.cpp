#include "keypadline.h"

#include "qtcompat.h"

namespace {

#ifdef HAS_ACCESSIBLE_TEXTS

/// While it lives, the texts of a line are told as stars.
class StarsForText
{
public:
    StarsForText(QObject *line, bool wanted);
    ~StarsForText();

private:
    static void tell(QAccessibleEvent *event);
    void tellStars(QAccessibleEvent *event);

    static StarsForText *s_current;

    QObject *m_line;
    bool m_wanted;
    StarsForText *m_outer;
    QAccessible::UpdateHandler m_handler;
};

StarsForText *StarsForText::s_current = 0;

StarsForText::StarsForText(QObject *line, bool wanted)
    : m_line(line),
      m_wanted(wanted),
      m_outer(s_current),
      m_handler(0)
{
    if (!m_wanted)
        return;
    s_current = this;
    m_handler = QAccessible::installUpdateHandler(tell);
}

StarsForText::~StarsForText()
{
    if (!m_wanted)
        return;
    QAccessible::installUpdateHandler(m_handler);
    s_current = m_outer;
}

void StarsForText::tell(QAccessibleEvent *event)
{
    // Handed on to where it would go without this one, which may be the one around it.
    StarsForText *stars = s_current;
    s_current = stars->m_outer;
    QAccessible::installUpdateHandler(stars->m_handler);
    if (event->object() == stars->m_line)
        stars->tellStars(event);
    else
        QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(tell);
    s_current = stars;
}

QString starsFor(const QString &text)
{
    return QString(text.length(), QLatin1Char('*'));
}

void StarsForText::tellStars(QAccessibleEvent *event)
{
    switch (event->type()) {
    case QAccessible::TextInserted: {
        const QAccessibleTextInsertEvent *insertion = static_cast<QAccessibleTextInsertEvent *>(event);
        QAccessibleTextInsertEvent stars(m_line, insertion->changePosition(), starsFor(insertion->textInserted()));
        stars.setCursorPosition(insertion->cursorPosition());
        QAccessible::updateAccessibility(&stars);
        break;
    }
    case QAccessible::TextRemoved: {
        const QAccessibleTextRemoveEvent *removal = static_cast<QAccessibleTextRemoveEvent *>(event);
        QAccessibleTextRemoveEvent stars(m_line, removal->changePosition(), starsFor(removal->textRemoved()));
        stars.setCursorPosition(removal->cursorPosition());
        QAccessible::updateAccessibility(&stars);
        break;
    }
    case QAccessible::TextUpdated: {
        const QAccessibleTextUpdateEvent *update = static_cast<QAccessibleTextUpdateEvent *>(event);
        QAccessibleTextUpdateEvent stars(m_line, update->changePosition(), starsFor(update->textRemoved()),
                                         starsFor(update->textInserted()));
        stars.setCursorPosition(update->cursorPosition());
        QAccessible::updateAccessibility(&stars);
        break;
    }
    default:
        QAccessible::updateAccessibility(event);
        break;
    }
}

#else

struct StarsForText
{
    StarsForText(QObject *, bool) {}
};

#endif

}

void wipe(QString *text)
{
    if (text->isDetached()) {
        // volatile: the compiler would leave out what nobody reads any more.
        volatile ushort *characters = reinterpret_cast<ushort *>(text->data());
        for (int i = 0; i < text->length(); ++i)
            characters[i] = 0;
    }
    text->clear();
}

HeldTexts::~HeldTexts()
{
    wipe(&entered);
    wipe(&shown);
    wipe(&display);
}

KeypadLine::KeypadLine(QWidget *parent)
    : QLineEdit(parent)
{
}

void KeypadLine::showText(const QString &text, bool secret)
{
    const StarsForText stars(this, secret || isMasked());
    setText(text);
}

void KeypadLine::clearText(bool secret)
{
    // Not clear(), which notes every character to take it back.
    if (!text().isEmpty())
        showText(QString(), secret);
}

void KeypadLine::limitText(int length)
{
    const StarsForText stars(this, isMasked());
    setMaxLength(length);
}

void KeypadLine::letGo(const QString &newEntered)
{
    // Wiped at the end of the function, when nobody else has them.
    HeldTexts before;
    qSwap(before.entered, entered);
    qSwap(before.shown, shown);
    qSwap(before.display, display);
    entered = newEntered;
    shown = text();
    display = displayText();
}

bool KeypadLine::isMasked() const
{
    return echoMode() != Normal;
}
