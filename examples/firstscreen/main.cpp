#include "widgetlist.h"
#include "widgetlistitem.h"
#include "platform/soundmanager.h"

#include <QApplication>

class VolumeMenu : public WidgetList
{
public:
    explicit VolumeMenu(QWidget *parent)
        : WidgetList(2, parent, SoundManager::getInstance())
    {
        setTitle("Volume", true);
        const char *const titles[] = {"Music", "Phone"};
        for (int row = 0; row < 2; ++row) {
            WidgetListItem *item = new WidgetListItem(this, SoundManager::getInstance());
            item->resize(220, 46);  // the list takes the row's height from its item
            item->setTitle(titles[row], true);
            item->addValue("Low");
            item->addValue("High");
            addListItem(item);
        }
    }
};

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VolumeMenu menu(0);
    QObject::connect(&menu, SIGNAL(finished()), &application, SLOT(quit()));
    menu.resize(220, 176);
    menu.show();
    return application.exec();
}
