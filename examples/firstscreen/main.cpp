#include "platform/soundmanager.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

#include <QApplication>

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");  // a point is a pixel, as on the device
    QApplication application(argc, argv);

    WidgetList menu(3, 0, SoundManager::getInstance());
    menu.setTitle("Volume", true);
    menu.setTitleIcon("image: url(:/resource/images_l2/icon_sound.png);");
    const char *const titles[] = {"Music", "Phone", "Navigation"};
    for (int row = 0; row < 3; ++row) {
        WidgetListItem *item = new WidgetListItem(&menu, SoundManager::getInstance());
        item->resize(220, 46);  // the list takes the row's height from its item
        item->setTitle(titles[row], true);
        item->addValue("Low");
        item->addValue("High");
        menu.addListItem(item);
    }
    QObject::connect(&menu, SIGNAL(finished()), &application, SLOT(quit()));

    menu.resize(220, 176);
    menu.show();
    return application.exec();
}
