// Menus for a device that sends F1 to F4 for up, down, left and right. All digits are free then to open rows.
//
// F1 and F2 move up and down, F3 and F4 change the value. F4 opens a row that leads deeper, and so does its digit.
// Escape goes back, and ends the program at last.

#include "platform/soundmanager.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

#include <QApplication>
#include <QStringList>

class Menu : public WidgetList
{
    Q_OBJECT

public:
    Menu(const QString &title, int rowCount, QWidget *screen);

    WidgetListItem *addRow(const QString &title);
    void addValueRow(const QString &title, const QStringList &values);
    void addDeeperRow(const QString &title, int digit);

private Q_SLOTS:
    void open();
};

Menu::Menu(const QString &title, int rowCount, QWidget *screen)
    : WidgetList(rowCount, screen, SoundManager::getInstance())
{
    m_useFunctionKeys = true;
    setTitle(title, true);
    setTitleIcon("image: url(:/resource/images_l2/icon_sound.png);");
    resize(220, 176);
}

WidgetListItem *Menu::addRow(const QString &title)
{
    WidgetListItem *row = new WidgetListItem(this, m_soundManager);
    row->m_useFunctionKeys = true;  // each widget has its own mode
    row->setObjectName(title);
    row->setTitle(title, true);
    row->resize(220, 46);  // the list takes the row's height from its item
    return row;
}

void Menu::addValueRow(const QString &title, const QStringList &values)
{
    WidgetListItem *row = addRow(title);
    for (int i = 0; i < values.size(); ++i)
        row->addValue(values.at(i));
    addListItem(row);
}

void Menu::addDeeperRow(const QString &title, int digit)
{
    WidgetListItem *row = addRow(title);
    row->setMoreDepth(true);
    row->m_noShortcut = false;
    row->setSerialNum(true, digit);  // the badge; the key is the list's matter
    addListItem(row, Qt::Key_0 + digit);
    connect(row, SIGNAL(doEnter()), this, SLOT(open()));
}

void Menu::open()
{
    Menu *menu = new Menu(sender()->objectName(), 3, parentWidget());
    menu->addValueRow("Volume", QStringList() << "Low" << "Medium" << "High");
    menu->addValueRow("Sound", QStringList() << "Speech" << "Classical" << "Rock");
    menu->addValueRow("Balance", QStringList() << "Left" << "Centre" << "Right");
    connect(menu, SIGNAL(finished()), menu, SLOT(deleteLater()));
    connect(menu, SIGNAL(destroyed()), focusWidget(), SLOT(setFocus()));  // to the row that has it now
    menu->show();
}

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");  // a point is a pixel, as on the device
    QApplication application(argc, argv);

    QWidget screen;
    Menu sources("Sources", 5, &screen);
    const char *const titles[] = {"Radio", "Music", "Telephone", "Navigation", "Messages"};
    for (int i = 0; i < 5; ++i)
        sources.addDeeperRow(titles[i], i + 1);
    QObject::connect(&sources, SIGNAL(finished()), &screen, SLOT(close()));

    screen.resize(220, 176);
    screen.show();
    return application.exec();
}

#include "main.moc"
