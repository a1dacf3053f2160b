// What the memories hold: up and down choose one, left frees some of it, right fills it, and OK empties it.

#include "device.h"
#include "parts.h"
#include "screens.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "widgetprogressbar.h"

#include <QKeyEvent>

namespace {

const int ClickSound = 901;
const int FirstRowTop = 38;
const int RowHeight = 46;
const int StepsOfBar = 8;

// Where a progress bar has its texts.
const QRect TitlePlace(6, 6, 120, 14);
const QRect ValuePlace(132, 6, 82, 14);

const char RowSheet[] = "WidgetProgressBar {background-color: #F8F7F6;}";
const char FocusedRowSheet[] = "WidgetProgressBar {background-color: #F7CE86;}";
const char BarSheet[] =
    "QProgressBar {border: 0px; background-color: #8C8282; color: #FFFFFF;}"
    "QProgressBar::chunk {background-color: #594B4F;}";

struct Memory
{
    const char *name;
    int used;  // kilobytes
    int capacity;
};

const Memory memories[] = {
    {"Messages", 384, 1024},
    {"Maps", 114688, 131072},
    {"Memory card", 1572864, 4194304},
};
const int MemoryCount = int(sizeof memories / sizeof memories[0]);

void place(WidgetProgressBar *bar, WidgetProgressBar::Item item, const QRect &place)
{
    bar->setItemGeometry(item, place.x(), place.y(), place.width(), place.height());
}

void mirrorForWriting(WidgetProgressBar *bar)
{
    if (!StringRC::getInstance()->m_rightToLeft)
        return;
    bar->setLayoutDirection(Qt::RightToLeft);
    place(bar, WidgetProgressBar::ItemTitle, placeForWriting(TitlePlace, Device::Width));
    place(bar, WidgetProgressBar::ItemValue, placeForWriting(ValuePlace, Device::Width));
    // The layout direction does not turn the alignment of a label with digits.
    bar->setItemStyle(WidgetProgressBar::ItemValue,
                      QStringLiteral("color: #594B4F; qproperty-alignment: 'AlignLeft | AlignVCenter';"));
}

class MemoryScreen : public Widget
{
public:
    explicit MemoryScreen(Device &device);

protected:
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void addRow(int row);
    void focusRow(int row);
    void change(int steps);
    void empty();

    Device &m_device;
    WidgetProgressBar *m_bars[MemoryCount];
    int m_used[MemoryCount];
    int m_focusedRow = 0;
};

MemoryScreen::MemoryScreen(Device &device)
    : Widget(&device, SoundManager::getInstance()),
      m_device(device)
{
    addTitleBar(this, text("Memory (KB)"), QStringLiteral("icon_memory"), QStringLiteral("guide_change"));
    for (int row = 0; row < MemoryCount; ++row)
        addRow(row);
    focusRow(0);
}

void MemoryScreen::addRow(int row)
{
    WidgetProgressBar *bar = new WidgetProgressBar(this);
    bar->setAttribute(Qt::WA_StyledBackground);
    place(bar, WidgetProgressBar::ItemBackground, QRect(0, FirstRowTop + row * RowHeight, Device::Width, RowHeight));
    bar->setItemStyle(WidgetProgressBar::ItemBar, QString::fromLatin1(BarSheet));
    bar->setItemFont(WidgetProgressBar::ItemValue, 12, true);
    mirrorForWriting(bar);
    bar->setItemStyle(WidgetProgressBar::ItemBackground, QString::fromLatin1(RowSheet));
    bar->setItemTitle(text(memories[row].name));
    bar->setItemUseMaxValue(memories[row].used, memories[row].capacity);
    m_used[row] = memories[row].used;
    m_bars[row] = bar;
}

void MemoryScreen::focusRow(int row)
{
    m_bars[m_focusedRow]->setItemStyle(WidgetProgressBar::ItemBackground, QString::fromLatin1(RowSheet));
    m_focusedRow = (row + MemoryCount) % MemoryCount;
    m_bars[m_focusedRow]->setItemStyle(WidgetProgressBar::ItemBackground, QString::fromLatin1(FocusedRowSheet));
}

void MemoryScreen::change(int steps)
{
    const int capacity = memories[m_focusedRow].capacity;
    int &used = m_used[m_focusedRow];
    used = qBound(0, used + steps * (capacity / StepsOfBar), capacity);
    m_bars[m_focusedRow]->setItemUseMaxValue(used, capacity);
}

void MemoryScreen::empty()
{
    change(-StepsOfBar);
    m_device.showMessage(text("Everything deleted"));
}

void MemoryScreen::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (isUpKey(key))
        focusRow(m_focusedRow - 1);
    else if (isDownKey(key))
        focusRow(m_focusedRow + 1);
    else if (isLeftKey(key))
        change(-1);
    else if (isRightKey(key))
        change(1);
    else if (isOKKey(key))
        empty();
    else
        return Widget::keyReleaseEvent(event);
    playSound(ClickSound);
}

}

Screen memoryScreen()
{
    return {
        "memory",
        "Progress bars that can be filled and emptied",
        [](Device &device) -> QWidget * { return new MemoryScreen(device); },
        {
            {"", ""},
            {"freed", "down left left"},
            {"full", "down right"},
            {"emptied", "up OK 1"},
            {"everything-deleted", "up OK"},
            {"right-to-left", "", true},
        },
    };
}
