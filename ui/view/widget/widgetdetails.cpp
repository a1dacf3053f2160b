#include "widgetdetails.h"

#include "platform/logging.h"
#include "platform/util.h"
#include "qtcompat.h"

#include <QThread>
#include <QWidget>

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

FittedText::FittedText()
    : m_textWidth(-1),
      m_cutWidth(-1)
{
}

int FittedText::textWidth(const QString &text, const QFont &font)
{
    if (m_textWidth < 0 || m_text != text || m_font != font) {
        m_text = text;
        m_font = font;
        m_textWidth = ::textWidth(text, font);
        m_cutWidth = -1;
    }
    return m_textWidth;
}

QString FittedText::fit(const QString &text, const QFont &font, int width)
{
    // Cutting straight away would also cut texts that fit exactly: the toolkit rounds differently there.
    if (textWidth(text, font) <= width)
        return text;
    if (m_cutWidth != width || width < 0) {
        m_cutText = QFontMetrics(font).elidedText(text, Qt::ElideRight, width);
        m_cutWidth = width;
    }
    return m_cutText;
}

void applyStyleSheet(QWidget *widget, const QString &sheet)
{
    if (widget->styleSheet() == sheet)
        return;
    // Of a widget that was not dressed yet the toolkit would go on dressing the children for its old sheet.
    if (!widget->styleSheet().isEmpty() && !widget->children().isEmpty())
        widget->ensurePolished();
    widget->setStyleSheet(sheet);
}

void applyStyleSheet(QWidget *widget, const char *sheet)
{
    if (widget->styleSheet() != QLatin1String(sheet))
        applyStyleSheet(widget, QString::fromLatin1(sheet));
}

void showWithParent(QWidget *child)
{
    const QWidget *parent = child->parentWidget();
    if (parent && !parent->isVisible())
        markShown(child);
    else
        child->show();
}

void markShown(QWidget *widget)
{
    // show() hands a widget to the style engine at once, also where its parent is hidden, and the engine keeps what it
    // made of the widget's sheet for good.
    widget->setAttribute(Qt::WA_WState_ExplicitShowHide);
    widget->setAttribute(Qt::WA_WState_Hidden, false);
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
