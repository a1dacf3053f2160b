#include "widgetbottomguide.h"

#include "widgetdetails.h"

#include <QLabel>

WidgetBottomGuide::WidgetBottomGuide(QWidget *parent, SoundManager *sound)
    : Widget(parent, sound)
{
    setStyleSheet(QLatin1String("background: transparent"));

    m_curPageLabel = new QLabel(this);
    m_totPageLabel = new QLabel(this);
    const QFont font = defaultFont(14, true);
    m_curPageLabel->setFont(font);
    m_totPageLabel->setFont(font);
    m_curPageLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_totPageLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void WidgetBottomGuide::setCurPageNo(int page)
{
    m_curPageLabel->setText(QString::number(page));
}

void WidgetBottomGuide::setTotPageNo(int count)
{
    m_totPageLabel->setText(QLatin1Char('/') + QString::number(count));
}

void WidgetBottomGuide::showEvent(QShowEvent *)
{
    const int labelWidth = width() / 10;
    m_curPageLabel->setGeometry(4 * width() / 10, 0, labelWidth, height());
    m_totPageLabel->setGeometry(width() / 2, 0, labelWidth, height());
    applyStyleSheet(m_curPageLabel, "color: #ffffff");
    applyStyleSheet(m_totPageLabel, "color: #8c8282");
}
