#include "screens.h"

#include "clockscreen.h"
#include "nameentry.h"
#include "settingsmenu.h"

#include "platform/util.h"

#include <QPalette>

namespace {

const QSize ScreenSize(220, 176);
const char *const WatchName = "screens";
const int KickPeriod = 1000;  // milliseconds; thread_timeout_ms of the configuration is longer

}

Screens::Screens()
    : m_area(new QWidget(this)),
      m_menu(new SettingsMenu(m_area))
{
    setPalette(Qt::black);
    m_menu->resize(ScreenSize);
    connect(m_menu, SIGNAL(clockWanted()), this, SLOT(openClock()));
    connect(m_menu, SIGNAL(nameWanted()), this, SLOT(openName()));
}

Screens::~Screens()
{
    Util::stopWatchThread(WatchName);
}

void Screens::startWatch()
{
    Util::startWatchThread(WatchName);
    startTimer(KickPeriod);
}

void Screens::resizeEvent(QResizeEvent *)
{
    QRect place(QPoint(), ScreenSize);
    place.moveCenter(rect().center());
    m_area->setGeometry(place);
}

void Screens::timerEvent(QTimerEvent *)
{
    Util::kickDog(WatchName);
}

void Screens::openClock()
{
    ClockScreen *clock = new ClockScreen(m_area, m_menu->hours());
    connect(clock, SIGNAL(finished()), this, SLOT(goBack()));
    open(clock);
}

void Screens::openName()
{
    NameEntry *entry = new NameEntry(m_area, m_menu->name());
    connect(entry, SIGNAL(cancel()), this, SLOT(goBack()));
    connect(entry, SIGNAL(ready(QString)), this, SLOT(takeName(QString)));
    open(entry);
}

void Screens::takeName(const QString &name)
{
    m_menu->setName(name);
    goBack();
}

// The menu is not hidden: each show would put its focus on the first row again.
void Screens::open(QWidget *screen)
{
    m_row = m_menu->focusWidget();
    m_opened = screen;
    screen->resize(ScreenSize);
    screen->show();
    screen->setFocus();
}

void Screens::goBack()
{
    if (!m_opened)
        return;
    m_opened->hide();
    m_opened->deleteLater();  // its key is still on the way through it
    m_opened = 0;
    if (m_row)
        m_row->setFocus();
}
