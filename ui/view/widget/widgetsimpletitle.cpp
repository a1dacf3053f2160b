#include "widgetsimpletitle.h"

#include "widgetdetails.h"

#include <QLabel>

namespace {

const QRect BarRect(0, 0, 220, 38);
const Qt::Alignment TitleAlignment = Qt::AlignLeft | Qt::AlignVCenter;

}

WidgetSimpleTitle::WidgetSimpleTitle(QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager)
{
    setGeometry(BarRect);
    setFocusPolicy(Qt::NoFocus);
    setStyleSheet(QLatin1String("color: #FFFFFF;background-color: #474242;"));

    m_titleLabel = new QLabel(this);
    m_titleLabel->setTextFormat(Qt::PlainText);
    m_titleLabel->setGeometry(BarRect);
    m_titleLabel->setFont(defaultFont(13, true));
    m_titleLabel->setAlignment(TitleAlignment);
}

void WidgetSimpleTitle::setItemGeometry(Item item, int x, int y, int w, int h)
{
    if (QWidget *part = findPart(item, "setItemGeometry", 31))
        placeWidget(part, x, y, w, h);
}

void WidgetSimpleTitle::setItemStyle(Item item, QString styleSheet)
{
    if (QWidget *part = findPart(item, "setItemStyle", 50))
        applyStyleSheet(part, styleSheet);
}

void WidgetSimpleTitle::setFontStyle(Item item, int pointSize, bool, QString styleSheet)
{
    if (item != ItemTitle) {
        rejectInvalidItem();
        return;
    }
    m_titleLabel->setFont(defaultFont(pointSize, true));
    // The title keeps the bar's colours; the caller's sheet passes over it first all the same.
    m_titleLabel->setStyleSheet(styleSheet);
    m_titleLabel->setStyleSheet(QLatin1String("background-color: #474242; color: #ffffff"));
    m_titleLabel->setAlignment(TitleAlignment);
}

void WidgetSimpleTitle::setTitle(QString title)
{
    m_titleLabel->setText(fitText(title, m_titleLabel->font(), m_titleLabel->width()));
}

QWidget *WidgetSimpleTitle::findPart(Item item, const char *function, int line)
{
    switch (int(item)) {
    case ItemBackground:
        return this;
    case ItemTitle:
        return m_titleLabel;
    default:
        rejectItem(function, line);
        return 0;
    }
}
