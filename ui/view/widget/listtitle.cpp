#include "listtitle.h"

#include "platform/stringrc.h"
#include "titlelook.h"
#include "widgetdetails.h"

#include <QLabel>
#include <QPainter>

namespace {

// The picture of a resource where \a sheet says nothing else, as those of icons do: it can be shown without a label.
QPixmap pictureOf(const QString &sheet, const QSize &size)
{
    const QString prefix = QLatin1String("image: url(");
    const QString suffix = QLatin1String(");");
    const QString path = sheet.mid(prefix.size(), sheet.size() - prefix.size() - suffix.size());
    const bool alone = sheet.startsWith(prefix) && sheet.endsWith(suffix);
    return alone && path.startsWith(QLatin1String(":/")) ? pictureFor(size, path) : QPixmap();
}

QRect withoutPadding(const QRect &rect)
{
    return rect.adjusted(TitleIconPadding, TitleIconPadding, -TitleIconPadding, -TitleIconPadding);
}

}

ListTitle::ListTitle(QWidget *list)
    : QWidget(list),
      m_icon(0),
      m_guide(0),
      m_font(defaultFont(TitlePointSize, true)),
      // A label that has a padding indents its text by half an x as well.
      m_indent(TitlePadding + textWidth(QLatin1String("x"), m_font) / 2),
      m_mirrored(StringRC::getInstance()->m_rightToLeft)
{
    setGeometry(TitleBarRect);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ListTitle::setTitle(const QString &title)
{
    if (m_title == title)
        return;
    m_title = title;
    update();
}

void ListTitle::setDefaultFont()
{
    m_font = defaultFont(TitlePointSize, false);
    m_indent = 0;
    m_mirrored = StringRC::getInstance()->m_rightToLeft;
    if (m_icon)
        m_icon->setGeometry(titleIconRect(m_mirrored));
    update();
}

void ListTitle::addIconStyle(const QString &style)
{
    m_iconSheet = withStyle(m_iconSheet, style);
    m_iconPicture = pictureOf(m_iconSheet, withoutPadding(titleIconRect(m_mirrored)).size());
    if (m_iconPicture.isNull() && !m_icon) {
        m_icon = new QLabel(this);
        m_icon->setGeometry(titleIconRect(m_mirrored));
        // A guide lies upon it, also one that was there before.
        m_icon->lower();
        showWithParent(m_icon);
    }
    if (m_icon)
        applyStyleSheet(m_icon, titleIconSheet() + m_iconSheet);
    else
        update();
}

void ListTitle::addGuide(const QString &style, const QRect &rect)
{
    if (!m_guide) {
        m_guide = new QLabel(this);
        // It hides what it stands upon.
        m_guide->setStyleSheet(QLatin1String("background-color: " TITLE_BAR_COLOUR ";"));
    }
    m_guide->setGeometry(boundedRect(rect));
    applyStyleSheet(m_guide, withStyle(m_guide->styleSheet(), style));
    showWithParent(m_guide);
}

void ListTitle::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(QLatin1String(TITLE_BAR_COLOUR)));
    painter.setFont(m_font);
    painter.setPen(QColor(QLatin1String(TITLE_COLOUR)));
    if (!m_icon)
        paintPicture(&painter, withoutPadding(titleIconRect(m_mirrored)), m_iconPicture);
    paintText(&painter, titleTextRect(m_mirrored).adjusted(m_indent, 0, 0, 0), TitleTextAlignment, m_title);
}
