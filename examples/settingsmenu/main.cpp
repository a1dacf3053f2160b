// A settings menu whose values are kept in a file and are there again at the next start.
//
// 8 and 2 move down and up, 6 and 4 change the value. OK (the menu key of a PC) saves. Escape takes back what was not
// saved; where there is nothing to take back it ends the program.

#include "platform/soundmanager.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

#include <QApplication>
#include <QSettings>
#include <QStringList>

class SettingsMenu : public WidgetList
{
    Q_OBJECT

public:
    SettingsMenu();

private Q_SLOTS:
    void showState() { setTitle(isModified() ? "Sound (not saved)" : "Sound", true); }
    void save();
    void leave();

private:
    void addSetting(const char *key, const char *title, const QStringList &values);
    void restore();

    QList<WidgetListItem *> m_rows;  // the name of each is its key in the file
};

SettingsMenu::SettingsMenu()
    : WidgetList(4, 0, SoundManager::getInstance())
{
    setTitleIcon("image: url(:/resource/images_l2/icon_sound.png);");
    addSetting("clicks", "Key clicks", QStringList() << "Off" << "Quiet" << "Loud");
    addSetting("bass", "Bass", QStringList() << "Low" << "Medium" << "High");
    addSetting("treble", "Treble", QStringList() << "Low" << "Medium" << "High");
    addSetting("speed", "At high speed", QStringList() << "No louder" << "A little louder" << "A great deal louder");
    refreshItems();  // lays out what the rows show, which is what backup() notes
    restore();
    connect(this, SIGNAL(doSave()), this, SLOT(save()));
    connect(this, SIGNAL(finished()), this, SLOT(leave()));
}

void SettingsMenu::addSetting(const char *key, const char *title, const QStringList &values)
{
    WidgetListItem *row = new WidgetListItem(this, m_soundManager);
    row->setObjectName(key);
    row->resize(220, 46);  // the list takes the row's height from its item
    row->setTitle(title, true);
    for (int i = 0; i < values.size(); ++i)
        row->addValue(values.at(i));
    addListItem(row);
    m_rows += row;
    connect(row, SIGNAL(doChange()), this, SLOT(showState()));
}

void SettingsMenu::restore()
{
    const QSettings file;
    for (int i = 0; i < m_rows.size(); ++i)
        m_rows[i]->selectByValue(file.value(m_rows[i]->objectName()).toString(), false);
    backup();  // from now on isModified() compares with this
    showState();
}

void SettingsMenu::save()
{
    QSettings file;
    for (int i = 0; i < m_rows.size(); ++i)
        file.setValue(m_rows[i]->objectName(), m_rows[i]->getDisplayValue());
    backup();
    showState();
}

void SettingsMenu::leave()
{
    if (isModified())
        restore();
    else
        close();
}

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");  // a point is a pixel, as on the device
    QApplication application(argc, argv);
    application.setOrganizationName("libwidget-examples");
    application.setApplicationName("settingsmenu");

    SettingsMenu menu;
    menu.resize(220, 176);
    menu.show();
    return application.exec();
}

#include "main.moc"
