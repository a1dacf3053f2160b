#include "widgetselecttile.h"

#include "widgetdetails.h"

#include <QLabel>

namespace {

const char OneLineSheet[] =
    "background: transparent;color: #fafafa;"
    "padding-left: 0px;padding-right: 0px; padding-top: 0px; padding-bottom: 0px;";
const char WrappedSheet[] =
    "background: transparent;color: #fafafa;"
    "padding-left: 0px;padding-right: 0px; padding-top: 10px; padding-bottom: 0px;";

}

WidgetSelectTile::WidgetSelectTile(QWidget *parent, SoundManager *sound)
    : Widget(parent, sound)
{
    setStyleSheet(QLatin1String("background: transparent;"));
    m_contentLabel = new QLabel(this);
    m_contentLabel->setTextFormat(Qt::PlainText);
    m_contentLabel->setWordWrap(true);
    m_contentLabel->setFont(defaultFont(16, true));
}

void WidgetSelectTile::setContent(QString content)
{
    m_content = content;
    fitContent();
}

void WidgetSelectTile::showEvent(QShowEvent *)
{
    // The tile's place in its parent, not rect(): screens count on the shift.
    m_contentLabel->setGeometry(geometry());
    fitContent();
}

void WidgetSelectTile::fitContent()
{
    if (textWidth(m_content, m_contentLabel->font()) <= m_contentLabel->width()) {
        applyStyleSheet(m_contentLabel, OneLineSheet);
        m_contentLabel->setAlignment(Qt::AlignCenter);
    } else {
        applyStyleSheet(m_contentLabel, WrappedSheet);
        m_contentLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
    m_contentLabel->setText(m_content);
}
