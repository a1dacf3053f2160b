// A plugin of the toolkit that works a screen as a person would, inside the program as it was built. Loaded with
// QT_QPA_GENERIC_PLUGINS=screenprobe. SCREENPROBE_STEPS names a file with the steps, one in a line:
//
//     row Music Low        the row that has the focus says so
//     text Hello           so does a label or a text line that is seen,
//     no-text Hello        or none does
//     image clock_pm       a label that is seen shows the picture clock_pm.png,
//     no-image clock_pm    or none does
//     picture FILE         writes a PNG file of the screen
//     picture-2x FILE      the same with four pixels for each
//     same FILE            the screen looks as in the picture,
//     other FILE           or otherwise
//     like FILE            it does up to the edges of letters, which another toolkit may place elsewhere
//     key 6                presses and releases the key Qt::Key_6
//     hold 8 20            presses the key, repeats it 20 times and releases it
//     leave                ends the program, wherever it is
//
// Each step waits until what it says is so. The program is to end by itself after the last one, and not before;
// otherwise, and where something never comes about, it ends with status 1. So it does where a text is cut.

#include "tests/picturecomparison.h"
#include "widgetlistview.h"

#include <QAbstractItemView>

#include <QApplication>
#include <QFile>
#include <QGenericPlugin>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

const int LookPeriod = 10;  // milliseconds
const int LongestWait = 60000;
const QChar Ellipsis(0x2026);

const char *const pictures[] = {"arrow_prev_focus", "arrow_next_focus", "arrow_prev_nor", "arrow_next_nor"};

[[noreturn]] void fail(const QString &what)
{
    std::fprintf(stderr, "screenprobe: %s\n", qPrintable(what));
    std::_Exit(1);
}

QStringList readSteps()
{
    QFile file(qEnvironmentVariable("SCREENPROBE_STEPS"));
    if (!file.open(QFile::ReadOnly))
        fail(QStringLiteral("The steps in \"%1\" cannot be read.").arg(file.fileName()));
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

/// The labels that are seen.
QList<QLabel *> seenLabels(const QWidget *screen)
{
    QList<QLabel *> labels = screen->findChildren<QLabel *>();
    labels.erase(std::remove_if(labels.begin(), labels.end(), [](QLabel *label) { return !label->isVisible(); }),
                 labels.end());
    return labels;
}

QStringList seenTexts(const QWidget *screen)
{
    QStringList texts;
    for (const QLabel *label : seenLabels(screen))
        texts += label->text();
    for (const QLineEdit *line : screen->findChildren<QLineEdit *>())
        texts += line->displayText().isEmpty() ? line->placeholderText() : line->displayText();
    texts.removeAll(QString());
    return texts;
}

bool showsImage(const QWidget *screen, const QString &name)
{
    for (const QLabel *label : seenLabels(screen)) {
        if (label->styleSheet().contains(QStringLiteral("/%1.png)").arg(name)))
            return true;
    }
    return false;
}

/// The rows of the list over a model that has the focus.
const QAbstractItemView *focusedRows()
{
    const QWidget *list = QApplication::focusWidget();
    return list ? list->findChild<QAbstractItemView *>() : nullptr;
}

QString focusedRow()
{
    QStringList texts;
    if (const QAbstractItemView *rows = focusedRows()) {
        const QModelIndex index = rows->currentIndex();
        texts += index.data(WidgetListView::TitleRole).toString();
        texts += index.data(WidgetListView::ValueRole).toString();
        texts += index.data(WidgetListView::ValuesRole).toStringList().value(
            index.data(WidgetListView::ValueIndexRole).toInt());
        texts.removeAll(QString());
    } else if (const QWidget *row = QApplication::focusWidget()) {
        texts = seenTexts(row);
    }
    return texts.join(QLatin1Char(' '));
}

QImage look(QWidget *screen)
{
    return screen->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void write(const QImage &picture, const QString &file)
{
    if (!picture.save(file))
        fail(QStringLiteral("The picture cannot be written to %1.").arg(file));
}

bool looksAs(QWidget *screen, const QString &file)
{
    const QImage picture(file);
    if (picture.isNull())
        fail(QStringLiteral("The picture %1 cannot be read.").arg(file));
    return look(screen) == picture.convertToFormat(QImage::Format_RGB32);
}

bool looksLike(QWidget *screen, const QString &file)
{
    const QImage picture(file);
    return differingPixels(look(screen), picture) < picture.width() * picture.height() / 20;
}

void send(QEvent::Type type, int key, bool isRepeat)
{
    QKeyEvent event(type, key, Qt::NoModifier, QString(), isRepeat);
    QCoreApplication::sendEvent(QGuiApplication::focusWindow(), &event);
}

void work(const QString &name, int repeats)
{
    bool isKey = false;
    const int key = QMetaEnum::fromType<Qt::Key>().keyToValue(qPrintable(QStringLiteral("Key_") + name), &isKey);
    if (!isKey)
        fail(QStringLiteral("There is no key %1.").arg(name));
    send(QEvent::KeyPress, key, false);
    for (int i = 0; i < repeats; ++i)
        send(QEvent::KeyPress, key, true);
    send(QEvent::KeyRelease, key, false);
}

/// Whether something around \a widget ends in the middle of the lines in \a rect of it.
bool isCutByItsParents(const QWidget *widget, QRect rect)
{
    for (const QWidget *part = widget; !part->isWindow(); part = part->parentWidget()) {
        rect.moveTopLeft(part->mapToParent(rect.topLeft()));
        const QRect around = part->parentWidget()->rect();
        if (rect.top() > around.bottom() || rect.bottom() < around.top())
            return false;  // all of it is out of view
        if (rect.top() < around.top() || rect.bottom() > around.bottom())
            return true;
    }
    return false;
}

/// What the text of \a label takes. One line is as wide as where the next letter would begin, which may be less than what
/// the toolkit has as its size.
QSize neededSize(const QLabel *label)
{
    const QFontMetrics metrics = label->fontMetrics();
    const QSize size = metrics.size(0, label->text());
    return label->text().contains(QLatin1Char('\n')) ? size : QSize(metrics.horizontalAdvance(label->text()), size.height());
}

/// What holds for every screen.
void inspect(QWidget *screen)
{
    if (screen->logicalDpiY() != 72)
        fail(QStringLiteral("A point is not a pixel, the screen has %1 dpi.").arg(screen->logicalDpiY()));
    for (const char *picture : pictures) {
        if (!QFile::exists(QStringLiteral(":/resource/images_l2/%1.png").arg(QLatin1String(picture))))
            fail(QStringLiteral("The picture %1.png is missing.").arg(QLatin1String(picture)));
    }
    for (const QLabel *label : seenLabels(screen)) {
        if (label->text().isEmpty())
            continue;
        const QSize size = neededSize(label);
        if (label->text().endsWith(Ellipsis) || size.width() > label->width() || size.height() > label->height()
            || isCutByItsParents(label, label->rect()))
            fail(QStringLiteral("The text \"%1\" is cut, it needs %2 by %3 pixels and has %4 by %5.")
                     .arg(label->text()).arg(size.width()).arg(size.height()).arg(label->width()).arg(label->height()));
    }
    const QAbstractItemView *rows = focusedRows();
    if (rows && isCutByItsParents(rows->viewport(), rows->visualRect(rows->currentIndex())))
        fail(QStringLiteral("The row \"%1\" is cut.").arg(focusedRow()));
}

class ScreenProbe : public QObject
{
public:
    ScreenProbe()
        : m_steps(readSteps())
    {
        connect(&m_timer, &QTimer::timeout, this, &ScreenProbe::takeSteps);
        connect(qApp, &QCoreApplication::aboutToQuit, this, &ScreenProbe::end);
        m_timer.start(LookPeriod);
    }

private:
    const QStringList m_steps;
    QTimer m_timer;
    int m_step = 0;
    int m_looks = 0;

    QString step() const { return m_steps.value(m_step, QStringLiteral("end")); }

    void takeSteps()
    {
        QWidget *screen = QApplication::activeWindow();
        if (screen && QGuiApplication::focusWindow() && m_step < m_steps.size()) {
            inspect(screen);
            // What a key leads to may take a while, and comes from the event loop.
            if (takeStep(screen, step().section(QLatin1Char(' '), 0, 0), step().section(QLatin1Char(' '), 1))) {
                ++m_step;
                m_looks = 0;
            }
        }
        if (++m_looks > LongestWait / LookPeriod)
            giveUp();
    }

    bool takeStep(QWidget *screen, const QString &verb, const QString &what)
    {
        if (verb == QLatin1String("row"))
            return focusedRow() == what;
        if (verb == QLatin1String("text"))
            return seenTexts(screen).contains(what);
        if (verb == QLatin1String("no-text"))
            return !seenTexts(screen).contains(what);
        if (verb == QLatin1String("image"))
            return showsImage(screen, what);
        if (verb == QLatin1String("no-image"))
            return !showsImage(screen, what);
        if (verb == QLatin1String("same"))
            return looksAs(screen, what);
        if (verb == QLatin1String("other"))
            return !looksAs(screen, what);
        if (verb == QLatin1String("like"))
            return looksLike(screen, what);

        if (verb == QLatin1String("picture"))
            write(look(screen), what);
        else if (verb == QLatin1String("picture-2x"))
            write(look(screen).scaled(2 * screen->size()), what);
        else if (verb == QLatin1String("key"))
            work(what, 0);
        else if (verb == QLatin1String("hold"))
            work(what.section(QLatin1Char(' '), 0, 0), what.section(QLatin1Char(' '), 1).toInt());
        else if (verb == QLatin1String("leave"))
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        else
            fail(QStringLiteral("There is no step \"%1\".").arg(verb));
        return true;
    }

    void giveUp() const
    {
        const QWidget *screen = QApplication::activeWindow();
        const QStringList texts = screen ? seenTexts(screen) : QStringList();
        fail(QStringLiteral("It never comes to \"%1\" (step %2). The row is \"%3\", the texts are \"%4\".")
                 .arg(step(), QString::number(m_step + 1), focusedRow(), texts.join(QStringLiteral("\", \""))));
    }

    void end() const
    {
        if (m_step < m_steps.size())
            fail(QStringLiteral("The program ends before \"%1\" (step %2).").arg(step(), QString::number(m_step + 1)));
    }
};

}

class ScreenProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "screenprobe.json")

public:
    QObject *create(const QString &, const QString &) override { return new ScreenProbe; }
};

#include "screenprobe.moc"
