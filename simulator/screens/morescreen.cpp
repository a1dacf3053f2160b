// The list behind the last entry of the main menu.

#include "device.h"
#include "rows.h"
#include "screen.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

namespace {

struct Entry
{
    const char *title;
    int digit;
    const char *screen;
};

const Entry entries[] = {
    {"User guide", 1, "reader"},
    {"Memory", 3, "memory"},
    {"Contacts", 5, "contacts"},
    {"Password", 7, "password"},
    {"Notes", 9, "notes"},
};
const int EntryCount = int(sizeof entries / sizeof entries[0]);

}

Screen moreScreen()
{
    return {
        "more",
        "A list that leads to the other screens",
        [](Device &device) -> QWidget * {
            WidgetList *list = new WidgetList(EntryCount, &device, SoundManager::getInstance());
            setTitleBar(list, text("More"), QStringLiteral("icon_more.png"));
            for (const Entry &entry : entries) {
                WidgetListItem *row = addRow(list, text(entry.title), entry.digit);
                row->setMoreDepth(true);
                row->m_enterOnOK = true;
                QObject::connect(row, &WidgetListItem::doEnter, &device,
                                 [&device, entry] { device.open(QString::fromLatin1(entry.screen)); });
            }
            QObject::connect(list, &Widget::finished, &device, [&device] { device.back(); });
            return list;
        },
        {
            {"", ""},
            {"last-row", "up"},
            {"back-from-memory", "down OK ESC"},
            {"digit", "3"},
            {"right-to-left", "", true},
        },
    };
}
