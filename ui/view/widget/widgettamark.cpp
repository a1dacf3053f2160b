#include "widgettamark.h"

#include "widgetdetails.h"

#include <QLabel>

namespace {

const int BannerWidth = 220;

}

WidgetTAMark::WidgetTAMark(QWidget *parent, SoundManager *sound)
    : Widget(parent, sound)
{
    setFocusPolicy(Qt::NoFocus);
    m_taLabel = new QLabel(this);
    m_taLabel->setTextFormat(Qt::PlainText);
    placeBanner();
    setTAFont(QFont());
}

void WidgetTAMark::updateTAText(QString text)
{
    // Measured in the font that was asked for, also where a style sheet gives the label another one.
    m_taLabel->setText(fitText(text, m_taFont, m_taLabel->width()));
}

void WidgetTAMark::setTAFont(QFont font)
{
    font.setPointSize(20);
    font.setWeight(QFont::Bold);
    m_taLabel->setFont(font);
    m_taFont = font;
}

void WidgetTAMark::showEvent(QShowEvent *)
{
    placeBanner();
    applyStyleSheet(m_taLabel, "color: #FFFFFF; background-image: url(:/resource/images_l2/tna_bg.png);");
    m_taLabel->setAlignment(Qt::AlignCenter);
}

void WidgetTAMark::placeBanner()
{
    m_taLabel->setGeometry(0, 0, BannerWidth, height());
}
