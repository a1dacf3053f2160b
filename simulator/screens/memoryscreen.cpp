// What the memories hold: up and down choose one, left frees some of it, right fills it, and OK empties it.

#include "device.h"
#include "parts.h"
#include "screen.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetprogressbar.h"

#include <QKeyEvent>
#include <QProgressBar>

namespace {

const int ClickSound = 901;
const int FirstRowTop = 38;
const int RowHeight = 46;
const int StepsOfBar = 8;

// Where a progress bar has its texts, with room for what reaches below the line.
const QRect TitlePlace(6, 4, 120, 18);
const QRect ValuePlace(132, 4, 82, 18);

const char RowSheet[] = "WidgetProgressBar {background-color: #F8F7F6;}";
const char FocusedRowSheet[] = "WidgetProgressBar {background-color: #F7CE86;}";
// The capacity is to be read on what is used as well as on what is free.
const char BarSheet[] =
    "QProgressBar {border: 0px; background-color: #6E6464; color: #FFFFFF;}"
    "QProgressBar::chunk {background-color: #1F1618;}";

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

void placeTexts(WidgetProgressBar *bar)
{
    place(bar, WidgetProgressBar::ItemTitle, placeForWriting(TitlePlace, Device::Width));
    place(bar, WidgetProgressBar::ItemValue, placeForWriting(ValuePlace, Device::Width));
    QString sheet = QString::fromLatin1(BarSheet);
    if (writesRightToLeft()) {
        bar->setLayoutDirection(Qt::RightToLeft);
        // It does not turn the alignment of digits.
        bar->setItemStyle(WidgetProgressBar::ItemValue,
                          QStringLiteral("color: #594B4F; qproperty-alignment: 'AlignLeft | AlignVCenter';"));
        sheet += QStringLiteral("QProgressBar {qproperty-alignment: AlignLeft;}");
    }
    bar->setItemStyle(WidgetProgressBar::ItemBar, sheet);
}

class MemoryScreen : public Widget
{
public:
    explicit MemoryScreen(Device &device);

protected:
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void addRow(int row);
    void setUsed(int row, int used);
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
    addTitleBar(this, text("Memory (KB)"), QStringLiteral("icon_memory"),
                writesRightToLeft() ? QStringLiteral("guide_change_right_to_left") : QStringLiteral("guide_change"));
    for (int row = 0; row < MemoryCount; ++row)
        addRow(row);
    focusRow(0);
}

void MemoryScreen::addRow(int row)
{
    WidgetProgressBar *bar = new WidgetProgressBar(this);
    bar->setAttribute(Qt::WA_StyledBackground);
    place(bar, WidgetProgressBar::ItemBackground, QRect(0, FirstRowTop + row * RowHeight, Device::Width, RowHeight));
    bar->setItemFont(WidgetProgressBar::ItemValue, 12, true);
    placeTexts(bar);
    bar->setItemStyle(WidgetProgressBar::ItemBackground, QString::fromLatin1(RowSheet));
    bar->setItemTitle(text(memories[row].name));
    m_bars[row] = bar;
    setUsed(row, memories[row].used);
}

void MemoryScreen::setUsed(int row, int used)
{
    m_used[row] = used;
    m_bars[row]->setItemUseMaxValue(used, memories[row].capacity);
    if (writesRightToLeft()) {
        // The blank after the capacity keeps it away from the edge at its end; here that is the edge before it.
        QProgressBar *bar = m_bars[row]->findChild<QProgressBar *>();
        bar->setFormat(QChar(QChar::Nbsp) + bar->format().trimmed());
    }
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
    setUsed(m_focusedRow, qBound(0, m_used[m_focusedRow] + steps * (capacity / StepsOfBar), capacity));
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
    else if (isBackKey(this, key))
        change(-1);
    else if (isForwardKey(this, key))
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
