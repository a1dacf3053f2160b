#include "widgetdetails.h"

#include "platform/logging.h"
#include "platform/util.h"
#include "qtcompat.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QThread>
#include <QWidget>

#include <climits>

#include <pthread.h>

QFont defaultFont(int pointSize, bool bold)
{
    QFont font;
    font.setPointSize(pointSize);
    if (bold)
        font.setWeight(QFont::Bold);
    return font;
}

int textWidth(const QString &text, const QFont &font)
{
    return textWidth(QFontMetrics(font), text);
}

QString fitText(const QString &text, const QFont &font, int width)
{
    return FittedText().fit(text, font, width);
}

namespace {

const int WidthUnknown = -1;

// What \a text takes at most, in pixels, without shaping it, which is what makes measuring dear; something above \a limit
// where that is not to be had or more. Only in ASCII do the characters of any font stand side by side as they
// are, but for rounding and kerning.
int widthAtMost(const QString &text, const QFont &font, int limit)
{
    if (font.letterSpacing() != 0 || font.wordSpacing() != 0)
        return QWIDGETSIZE_MAX;
    const QFontMetrics metrics(font);
    int width = 0;
    for (int i = 0; i < text.size() && width <= limit; ++i) {
        const QChar character = text.at(i);
        if (character < QLatin1Char(' ') || character > QLatin1Char('~'))
            return QWIDGETSIZE_MAX;
        const int characterWidth = textWidth(metrics, character);
        width += characterWidth + characterWidth / 4 + 1;
    }
    return width;
}

}

FittedText::FittedText()
    : m_widthAtMost(WidthUnknown),
      m_textWidth(WidthUnknown),
      m_cutWidth(WidthUnknown)
{
}

void FittedText::take(const QString &text, const QFont &font)
{
    if (m_text == text && m_font == font)
        return;
    m_text = text;
    m_font = font;
    m_widthAtMost = WidthUnknown;
    m_textWidth = WidthUnknown;
    m_cutWidth = WidthUnknown;
}

int FittedText::textWidth(const QString &text, const QFont &font)
{
    take(text, font);
    if (m_textWidth == WidthUnknown)
        m_textWidth = ::textWidth(text, font);
    return m_textWidth;
}

bool FittedText::fits(const QString &text, const QFont &font, int width)
{
    take(text, font);
    if (m_textWidth == WidthUnknown) {
        if (m_widthAtMost == WidthUnknown)
            m_widthAtMost = widthAtMost(text, font, width);
        if (m_widthAtMost <= width)
            return true;
    }
    return textWidth(text, font) <= width;
}

QString FittedText::fit(const QString &text, const QFont &font, int width)
{
    // Cutting straight away would also cut texts that fit exactly: the toolkit rounds differently there.
    if (fits(text, font, width))
        return text;
    if (m_cutWidth != width) {
        m_cutText = QFontMetrics(font).elidedText(text, Qt::ElideRight, width);
        m_cutWidth = width;
    }
    return m_cutText;
}

QString turnedText(const QString &text, int offset)
{
    return text.mid(offset) + text.left(offset);
}

void paintText(QPainter *painter, const QRect &rect, Qt::Alignment alignment, const QString &text)
{
    const bool mirrored = text.isRightToLeft();
    const int side = mirrored ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
    alignment = QStyle::visualAlignment(mirrored ? Qt::RightToLeft : Qt::LeftToRight, alignment);
    painter->drawText(rect, int(alignment) | side, text);
}

QPixmap pictureFor(const QSize &size, const QString &path)
{
    const QPixmap picture(path);
    const bool fits = picture.width() <= size.width() && picture.height() <= size.height();
    return fits ? picture : picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

void paintPicture(QPainter *painter, const QRect &place, const QPixmap &picture)
{
    painter->drawPixmap(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, picture.size(), place).topLeft(), picture);
}

void applyStyleSheet(QWidget *widget, const QString &sheet)
{
    if (widget->styleSheet() == sheet)
        return;
    // Where there are sheets already, its own or of those around it, the toolkit would go on dressing the children of a
    // widget that was not dressed yet as if it had none.
    if (!widget->children().isEmpty() && widget->style() != QApplication::style())
        widget->ensurePolished();
    widget->setStyleSheet(sheet);
}

void applyStyleSheet(QWidget *widget, const char *sheet)
{
    if (widget->styleSheet() != QLatin1String(sheet))
        applyStyleSheet(widget, QString::fromLatin1(sheet));
}

void applyFont(QWidget *widget, const QFont &font)
{
    // Equal alone is not enough: the widget may have it from its parent only, and follow that.
    const uint asked = resolveMask(font);
    const bool inPlace = widget->testAttribute(Qt::WA_SetFont) && (resolveMask(widget->font()) & asked) == asked
        && widget->font() == font;
    if (!inPlace)
        widget->setFont(font);
}

namespace {

int bounded(qint64 first, qint64 value, qint64 last)
{
    return int(qBound(first, value, last));
}

}

QRect boundedRect(qint64 x, qint64 y, qint64 w, qint64 h)
{
    // So far from the ends of the numbers that a place and a size can be added.
    const qint64 last = INT_MAX - QWIDGETSIZE_MAX;
    return QRect(bounded(-last, x, last), bounded(-last, y, last), bounded(0, w, QWIDGETSIZE_MAX),
                 bounded(0, h, QWIDGETSIZE_MAX));
}

QRect boundedRect(const QRect &rect)
{
    return boundedRect(rect.left(), rect.top(), qint64(rect.right()) - rect.left() + 1,
                       qint64(rect.bottom()) - rect.top() + 1);
}

void placeWidget(QWidget *widget, qint64 x, qint64 y, int w, int h)
{
    widget->setGeometry(boundedRect(x, y, w, h));
}

void showWithParent(QWidget *child)
{
    const QWidget *parent = child->parentWidget();
    if (!parent || parent->isVisible()) {
        child->show();
    } else if (child->isHidden() || !child->testAttribute(Qt::WA_WState_ExplicitShowHide)) {
        // show() would hand the child to the style engine at once, and the engine keeps what it makes of it for good.
        markShown(child);
        QEvent shown(QEvent::ShowToParent);
        QCoreApplication::sendEvent(child, &shown);
    }
}

void markShown(QWidget *widget)
{
    widget->setAttribute(Qt::WA_WState_ExplicitShowHide);
    widget->setAttribute(Qt::WA_WState_Hidden, false);
}

bool holdsFocus(const QWidget *widget)
{
    const QWidget *focus = widget->window()->focusWidget();
    return focus == widget || widget->isAncestorOf(focus);
}

struct tm localTime()
{
    // The platform may have one record for all who ask. Not a QMutex: the thread sanitizer does not see those.
    static pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    pthread_mutex_lock(&mutex);
    const struct tm now = *Util::localtime(time(NULL));
    pthread_mutex_unlock(&mutex);
    return now;
}

void stopThread(QThread *thread, ThreadShared<bool> *stop)
{
    *stop = true;
    while (*stop)
        Util::delayMs(10);
    // It still takes its leave of the watchdog.
    thread->wait();
}

void rejectItem(const char *function, int line)
{
    Logging::log(Logging::LogError, "[%s, %d] Unknown item!!", function, line);
}

void rejectInvalidItem()
{
    Logging::log(Logging::LogError, "Invalid item!!");
}

void rejectIndex(const char *sourcePath, const char *function, int index)
{
    Logging::log(Logging::LogError, "[%s, %s] Invalid index %d", sourcePath, function, index);
}

bool rejectsIndex(const char *sourcePath, const char *function, int index, int count)
{
    if (index >= 0 && index < count)
        return false;
    rejectIndex(sourcePath, function, index);
    return true;
}
