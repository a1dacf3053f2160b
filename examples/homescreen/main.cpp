// A home screen: a main menu that turns like a carousel, below the status bar. Its pictures are in pictures.qrc.
//
// 4 and 6 turn the menu, OK (the menu key of a PC) opens the entry. Who opens Message has read it, as the status bar
// shows then. Escape goes back, and ends the program at last.

#include "platform/soundmanager.h"
#include "widgetlistview.h"
#include "widgetstatusbar.h"
#include "widgetswitcher.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStringListModel>

namespace {

const char *const entries[][2] = {
    {"Radio", "Stations,Search,Traffic news"}, {"Clock", "Alarm,Timer,Set the time"},
    {"Route", "Home,Work,Last places"},        {"Message", "Read,Write,Delete all"},
    {"Settings", "Sound,Display,Language"},    {"More", "Notes,Memory,About"},
};

QString picture(const QString &name)
{
    return QString("image: url(:/resource/images_l2/%1.png);").arg(name.toLower());
}

}

class HomeScreen : public QWidget
{
    Q_OBJECT

public:
    HomeScreen();

protected:
    virtual void keyReleaseEvent(QKeyEvent *event) { if (event->key() == Qt::Key_Escape) close(); }

private Q_SLOTS:
    void open(int entry);

private:
    WidgetStatusBar m_statusBar;
    WidgetSwitcher m_switcher;
};

HomeScreen::HomeScreen()
    : m_statusBar(this, SoundManager::getInstance()),
      m_switcher(this, SoundManager::getInstance())
{
    setPalette(QColor("#474242"));
    const char *const icons[] = {"reception", "telephone", "message", "battery"};
    for (int i = 0; i < 4; ++i)
        m_statusBar.setStatusUrl(i, 0, picture(QString("status_%1").arg(icons[i])));
    m_statusBar.setStatusUrl(2, 1, picture("status_message_read"));
    m_statusBar.setBgGeometry(0, 0, 220, 24, 23);
    // By the numbers of WidgetSwitcher: 1 pictures at the sides, 3 in the middle, 4 the name, 5 and 6 the page dots.
    for (int i = 0; i < 6; ++i) {
        m_switcher.setItemStyle(1, picture(QString(entries[i][0]) + "_side"), QString(), i);
        m_switcher.setItemStyle(3, picture(entries[i][0]), QString(), i);
        m_switcher.setItemStyle(4, entries[i][0], QString(), i);
    }
    m_switcher.setFontStyle(4, 16, true, "color: #F8F7F6;");
    m_switcher.setItemStyle(5, picture("page_off"), QString(), 0);
    m_switcher.setItemStyle(6, picture("page_on"), QString(), 0);
    m_switcher.setItemGeometry(5, 79, 4, 6, 6);
    m_switcher.setItemGeometry(6, 79, 4, 6, 6);
    m_switcher.setBgGeometry(0, 24, 220, 152);
    m_switcher.setFocus();
    connect(&m_switcher, SIGNAL(sendMainItem(int)), this, SLOT(open(int)));
}

void HomeScreen::open(int entry)
{
    WidgetListView *list = new WidgetListView(this, SoundManager::getInstance());
    list->setTitle(entries[entry][0], true);
    list->setTitleIcon(picture(QString(entries[entry][0]) + "_side"));
    list->setModel(new QStringListModel(QString(entries[entry][1]).split(','), list));
    connect(list, SIGNAL(finished()), list, SLOT(deleteLater()));
    connect(list, SIGNAL(destroyed()), &m_switcher, SLOT(setFocus()));
    list->resize(220, 176);
    list->show();
    if (QString(entries[entry][0]) == "Message")
        m_statusBar.showItem2(1);
}

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");  // a point is a pixel, as on the device
    QApplication application(argc, argv);

    HomeScreen screen;
    screen.resize(220, 176);
    screen.show();
    return application.exec();
}

#include "main.moc"
