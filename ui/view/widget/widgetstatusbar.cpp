#include "widgetstatusbar.h"

#include "platform/logging.h"
#include "widgetdetails.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

const char SourcePath[] = "ui/view/widget/widgetstatusbar.cpp";

const int RightMargin = 6;
const int LeftReserve = 10;

}

WidgetStatusBar::WidgetStatusBar(QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager)
{
    setStyleSheet(QLatin1String("background: transparent;"));

    m_layout = new QHBoxLayout(this);
    m_layout->setSpacing(0);
    m_layout->setSizeConstraint(QLayout::SetDefaultConstraint);
    m_layout->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < IconCount; ++i) {
        m_iconLabel[i] = new QLabel(this);
        m_layout->addWidget(m_iconLabel[i]);
        m_status[i] = 0;
    }
}

void WidgetStatusBar::setStatusUrl(int item, int status, QString styleSheet)
{
    const bool itemExists = item >= 0 && item < IconCount;
    const bool statusExists = status >= 0 && status < StatusCount;
    if (itemExists && statusExists)
        m_statusUrl[item][status] = styleSheet;
}

void WidgetStatusBar::setBgGeometry(int x, int y, int w, int h, int iconWidth)
{
    placeWidget(this, x, y, w, h);
    const qint64 left = w - IconCount * qint64(iconWidth) - LeftReserve;
    m_layout->setContentsMargins(int(qBound(qint64(-QWIDGETSIZE_MAX), left, qint64(QWIDGETSIZE_MAX))), 0, RightMargin, 0);
}

void WidgetStatusBar::showItem0(int status)
{
    Logging::log(Logging::LogTrace, "[%s, %d] status = %d", "showItem0", 71, status);
    setStatus(0, status);
}

void WidgetStatusBar::showItem1(int status)
{
    Logging::log(Logging::LogTrace, "[%s : %s] status =%d", SourcePath, "showItem1", status);
    setStatus(1, status);
}

void WidgetStatusBar::showItem2(int status)
{
    Logging::log(Logging::LogTrace, "[%s : %s] status =%d", SourcePath, "showItem2", status);
    setStatus(2, status);
}

void WidgetStatusBar::showItem3(int status)
{
    Logging::log(Logging::LogTrace, "[%s : %s] status =%d", SourcePath, "showItem3", status);
    setStatus(3, status);
}

void WidgetStatusBar::showEvent(QShowEvent *)
{
    for (int i = 0; i < IconCount; ++i)
        dressIcon(i);
}

void WidgetStatusBar::setStatus(int item, int status)
{
    m_status[item] = status;
    dressIcon(item);
}

void WidgetStatusBar::dressIcon(int item)
{
    const int status = m_status[item];
    const bool exists = status >= 0 && status < StatusCount;
    applyStyleSheet(m_iconLabel[item], exists ? m_statusUrl[item][status] : QString());
}
