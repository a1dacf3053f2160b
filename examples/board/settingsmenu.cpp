#include "settingsmenu.h"

#include "widgetlistitem.h"

#include "platform/linux/boardsound.h"
#include "platform/soundmanager.h"

#include <QDir>
#include <QFile>
#include <QSettings>

#include <cstdio>
#include <unistd.h>

namespace {

// systemd names the directory that it has made for the unit.
QString settingsFile()
{
    const QByteArray directory = qgetenv("STATE_DIRECTORY");
    return (directory.isEmpty() ? QDir::homePath() : QFile::decodeName(directory)) + "/board.ini";
}

// Has the file \a next take the place of the settings, once all of it is on the disk. A full disk may show in nothing but
// its missing end.
bool replaceSettingsFile(const QString &next)
{
    QFile file(next);
    return file.open(QIODevice::ReadOnly) && file.readAll().endsWith('\n') && fsync(file.handle()) == 0
            && std::rename(QFile::encodeName(next).constData(), QFile::encodeName(settingsFile()).constData()) == 0;
}

}

SettingsMenu::SettingsMenu(QWidget *parent)
    : WidgetList(4, parent, SoundManager::getInstance())
{
    setTitleIcon("image: url(:/resource/images_l2/icon_sound.png);");
    setTitle("Settings", true);
    addDeeperRow("Clock", SIGNAL(clockWanted()));
    m_hours = addSetting("Time", QStringList() << "24 hours" << "12 hours");
    m_clicks = addSetting("Key clicks", QStringList() << "On" << "Off");
    m_nameRow = addDeeperRow("Name", SIGNAL(nameWanted()));
    restore();
}

WidgetListItem *SettingsMenu::addRow(const char *title)
{
    WidgetListItem *row = new WidgetListItem(this, m_soundManager);
    row->setObjectName(title);
    row->resize(220, 46);  // the list takes the row's height from its item
    row->setTitle(title, true);
    addListItem(row);
    return row;
}

WidgetListItem *SettingsMenu::addSetting(const char *title, const QStringList &values)
{
    WidgetListItem *row = addRow(title);
    for (int i = 0; i < values.size(); ++i)
        row->addValue(values.at(i));
    connect(row, SIGNAL(doChange()), this, SLOT(takeOver()));
    return row;
}

WidgetListItem *SettingsMenu::addDeeperRow(const char *title, const char *wanted)
{
    WidgetListItem *row = addRow(title);
    row->setMoreDepth(true);
    row->m_enterOnOK = true;
    connect(row, SIGNAL(doEnter()), this, wanted);
    return row;
}

WidgetClock::Format SettingsMenu::hours() const
{
    return m_hours->getDisplayValue() == "12 hours" ? WidgetClock::Hour12 : WidgetClock::Hour24;
}

QString SettingsMenu::name() const
{
    return m_name;
}

void SettingsMenu::setName(const QString &name)
{
    if (name == m_name)
        return;
    showName(name);
    keep();
}

void SettingsMenu::showName(const QString &name)
{
    m_name = name;
    m_nameRow->setTitle(name.isEmpty() ? QString("Name") : "Name: " + name, true);
    m_nameRow->updateTitle();
}

void SettingsMenu::muteClicks()
{
    Board::setMuted(m_clicks->getDisplayValue() == "Off");
}

// Writes nothing: flash wears, and what could not be read this time may still be there at the next start.
void SettingsMenu::restore()
{
    const QSettings file(settingsFile(), QSettings::IniFormat);
    m_hours->selectByValue(file.value("hours").toString(), false);
    m_clicks->selectByValue(file.value("clicks").toString(), false);
    muteClicks();
    showName(file.value("name").toString());
}

void SettingsMenu::takeOver()
{
    muteClicks();
    keep();
}

void SettingsMenu::keep()
{
    setTitle(write() ? "Settings" : "Settings (not kept)", true);
}

// Qt 4.8 writes into the file itself, so that a full disk or a loss of power would take all settings.
bool SettingsMenu::write() const
{
    const QString next = settingsFile() + ".new";
    QFile::remove(next);
    QSettings file(next, QSettings::IniFormat);
    const QSettings old(settingsFile(), QSettings::IniFormat);
    const QStringList keys = old.allKeys();
    for (int i = 0; i < keys.size(); ++i)
        file.setValue(keys.at(i), old.value(keys.at(i)));
    file.setValue("hours", m_hours->getDisplayValue());
    file.setValue("clicks", m_clicks->getDisplayValue());
    file.setValue("name", m_name);
    file.sync();
    return file.status() == QSettings::NoError && replaceSettingsFile(next);
}
