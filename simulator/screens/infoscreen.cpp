// A list to read, without focus: up and down turn its pages.

#include "device.h"
#include "rows.h"
#include "screen.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetlist.h"

namespace {

const int RowsPerPage = 3;

struct Fact
{
    const char *title;
    const char *value;
};

const Fact facts[] = {
    {"Model", "LW 220"},
    {"Serial no.", "0042 1977"},
    {"Software", "1.0.0"},
    {"Hardware", "B2"},
    {"Display", "220 x 176"},
    {"Memory", "64 MB"},
    {"Tuner", "2"},
    {"Stations", "24"},
    {"Supply", "13.8 V"},
    {"Antenna", "OK"},
};
const int FactCount = int(sizeof facts / sizeof facts[0]);

}

Screen infoScreen()
{
    return {
        "info",
        "A list in the no-focus style, which turns pages",
        [](Device &device) -> QWidget * {
            WidgetList *list = new WidgetList(FactCount, &device, SoundManager::getInstance());
            list->setNoFocusStyle(RowsPerPage);
            setTitleBar(list, text("About this device"), QStringLiteral("icon_info.png"));
            for (const Fact &fact : facts)
                addOneLineRow(list, text(fact.title), QString::fromUtf8(fact.value));
            QObject::connect(list, &Widget::finished, &device, [&device] { device.back(); });
            return list;
        },
        {
            {"", ""},
            {"next-page", "down"},
            {"last-page", "down down down"},
            {"page-before", "down down down up"},
            {"right-to-left", "", true},
        },
    };
}
