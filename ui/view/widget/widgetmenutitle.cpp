#include "widgetmenutitle.h"

#include "platform/logging.h"
#include "platform/stringrc.h"
#include "titlelook.h"
#include "widgetdetails.h"

#include <QLabel>

WidgetMenuTitle::WidgetMenuTitle(QWidget *parent, SoundManager *sound)
    : Widget(parent, sound)
{
    setGeometry(TitleBarRect);
    setFocusPolicy(Qt::NoFocus);
    setStyleSheet(QLatin1String("color: " TITLE_COLOUR ";background-color: " TITLE_BAR_COLOUR ";"));

    m_iconLabel = new QLabel(this);
    m_titleLabel = new QLabel(this);
    m_infoLabel = new QLabel(this);
    placeIconAndTitle();
    m_infoLabel->setGeometry(titleInfoRect(StringRC::getInstance()->m_rightToLeft));

    m_iconLabel->setStyleSheet(titleIconSheet());

    m_titleLabel->setFont(defaultFont(TitlePointSize, true));
    m_titleLabel->setAlignment(TitleTextAlignment);
    m_titleLabel->setStyleSheet(QString::fromLatin1("padding-left: %1px;").arg(TitlePadding));

    m_infoLabel->setAlignment(TitleInfoAlignment);
    m_infoLabel->hide();
}

WidgetMenuTitle::~WidgetMenuTitle()
{
}

void WidgetMenuTitle::setItemGeometry(WidgetMenuTitle::Item item, int x, int y, int w, int h)
{
    switch (int(item)) {
    case ItemBackground:
        placeWidget(this, x, y, w, h);
        break;
    case ItemTitle:
        placeWidget(m_titleLabel, x, y, w, h);
        break;
    case ItemIcon:
        placeWidget(m_iconLabel, x, y, w, h);
        break;
    case ItemInfo:
        m_infoLabel->show();
        placeWidget(m_infoLabel, x, y, w, h);
        break;
    default:
        rejectItem("setItemGeometry", 56);
        break;
    }
}

void WidgetMenuTitle::setItemStyle(WidgetMenuTitle::Item item, QString style)
{
    QLabel *label = 0;
    switch (int(item)) {
    case ItemBackground:
        applyStyleSheet(this, style);
        return;
    case ItemTitle:
        label = m_titleLabel;
        break;
    case ItemIcon:
        label = m_iconLabel;
        break;
    case ItemInfo:
        label = m_infoLabel;
        label->show();
        break;
    default:
        rejectItem("setItemStyle", 82);
        return;
    }

    const QString merged = withStyle(label->styleSheet(), style);
    Logging::log(Logging::LogTrace, "[%s, %d] concatStyle = %s", "setItemStyle", 93, merged.toLatin1().constData());
    // Set again also when unchanged: a screen calls this to have the label dressed anew.
    label->setStyleSheet(merged);
}

void WidgetMenuTitle::setFontStyle(WidgetMenuTitle::Item item, int pointSize, bool bold, QString style)
{
    if (item != ItemTitle) {
        rejectInvalidItem();
        return;
    }
    m_titleLabel->setFont(defaultFont(pointSize, bold));
    applyStyleSheet(m_titleLabel, style);
    placeIconAndTitle();
}

void WidgetMenuTitle::setTitle(QString text)
{
    m_titleLabel->setText(text);
}

void WidgetMenuTitle::placeIconAndTitle()
{
    const bool mirrored = StringRC::getInstance()->m_rightToLeft;
    m_iconLabel->setGeometry(titleIconRect(mirrored));
    m_titleLabel->setGeometry(titleTextRect(mirrored));
}
