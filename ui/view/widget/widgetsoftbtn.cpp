#include "widgetsoftbtn.h"

#include "platform/logging.h"
#include "widgetdetails.h"

#include <QLabel>

WidgetSoftBtn::WidgetSoftBtn(bool annotated, QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager),
      m_annotated(annotated),
      m_annotationLabel(0)
{
    setFocusPolicy(Qt::NoFocus);
    m_nameLabel = new QLabel(this);
    if (m_annotated)
        m_annotationLabel = new QLabel(this);

    setStyleSheet(QLatin1String("background-color: rgba(140, 130, 130, 255)"));

    m_nameLabel->setFont(defaultFont(14, true));
    m_nameLabel->setStyleSheet(QLatin1String("color: rgba(255, 255, 255, 255)"));
    m_nameLabel->setGeometry(0, 0, 220, 29);
    m_nameLabel->setAlignment(Qt::AlignCenter);

    if (m_annotated)
        m_annotationLabel->setGeometry(0, 0, 23, 11);
}

void WidgetSoftBtn::setItemGeometry(Item item, int x, int y, int w, int h)
{
    if (QWidget *part = findPart(item, "setItemGeometry", 49))
        placeWidget(part, x, y, w, h);
}

void WidgetSoftBtn::setItemStyle(Item item, QString styleSheet)
{
    if (QWidget *part = findPart(item, "setItemStyle", 76))
        applyStyleSheet(part, styleSheet);
}

void WidgetSoftBtn::setFontStyle(Item item, int pointSize, bool, QString styleSheet)
{
    if (item != ItemName) {
        rejectInvalidItem();
        return;
    }
    m_nameLabel->setFont(defaultFont(pointSize, true));
    applyStyleSheet(m_nameLabel, styleSheet);
}

void WidgetSoftBtn::setBtnName(QString name)
{
    m_nameLabel->setText(name);
}

void WidgetSoftBtn::showEvent(QShowEvent *)
{
    stretchName();
}

void WidgetSoftBtn::resizeEvent(QResizeEvent *)
{
    stretchName();
}

QWidget *WidgetSoftBtn::findPart(Item item, const char *function, int line)
{
    switch (int(item)) {
    case ItemBackground:
        return this;
    case ItemAnnotation:
        if (!m_annotated)
            Logging::log(Logging::LogError, "This is not annotated soft key...!");
        return m_annotationLabel;
    case ItemName:
        return m_nameLabel;
    default:
        rejectItem(function, line);
        return 0;
    }
}

void WidgetSoftBtn::stretchName()
{
    m_nameLabel->setGeometry(0, 0, width(), height());
}
