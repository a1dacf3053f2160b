// A choice between tiles: the arrows go from one to the next, and OK chooses.

#include "device.h"
#include "parts.h"
#include "screen.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetselecttile.h"

#include <QFrame>
#include <QKeyEvent>
#include <QLabel>

namespace {

const int ClickSound = 901;
const int MarkSize = 16;
const int MarkMargin = 5;
const int Padding = 8;

const char TileSheet[] = ".QFrame {background-color: #594B4F; border: 2px solid #594B4F; border-radius: 8px;}";
const char FocusedTileSheet[] = ".QFrame {background-color: #1F1618; border: 2px solid #F7CE86; border-radius: 8px;}";

struct Tile
{
    const char *content;
    QRect place;
    int up, down, left, right;  // the tiles that the arrows lead to
};

const Tile tiles[] = {
    {"Fast", QRect(6, 44, 101, 54), 2, 2, 1, 1},
    {"Short", QRect(113, 44, 101, 54), 2, 2, 0, 0},
    {"Without motorways and ferries if possible", QRect(6, 104, 208, 66), 0, 0, 2, 2},
};
const int TileCount = int(sizeof tiles / sizeof tiles[0]);

class ChoiceScreen : public Widget
{
public:
    explicit ChoiceScreen(Device &device);

protected:
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void addTile(int tile);
    void focusTile(int tile);
    void choose(int tile);

    Device &m_device;
    QFrame *m_frames[TileCount];
    QLabel *m_marks[TileCount];
    int m_focused = 0;
    int m_chosen = 0;
};

ChoiceScreen::ChoiceScreen(Device &device)
    : Widget(&device, SoundManager::getInstance()),
      m_device(device)
{
    addTitleBar(this, text("Route"), QStringLiteral("icon_route"), QStringLiteral("guide_save"));
    for (int tile = 0; tile < TileCount; ++tile)
        addTile(tile);
    focusTile(0);
    choose(0);
}

void ChoiceScreen::addTile(int tile)
{
    QFrame *frame = new QFrame(this);
    frame->setGeometry(placeForWriting(tiles[tile].place, Device::Width));
    frame->setStyleSheet(QString::fromLatin1(TileSheet));
    // The tile wants to stand in the corner of its parent.
    QWidget *inside = new QWidget(frame);
    inside->setGeometry(frame->rect().adjusted(Padding, 0, -Padding, 0));
    WidgetSelectTile *content = new WidgetSelectTile(inside, SoundManager::getInstance());
    content->setGeometry(inside->rect());
    const QFont font = content->findChild<QLabel *>()->font();
    content->setContent(brokenIntoLines(text(tiles[tile].content), font, inside->width() - Padding));

    const QRect corner(frame->width() - MarkMargin - MarkSize, MarkMargin, MarkSize, MarkSize);
    m_marks[tile] = addPicture(frame, placeForWriting(corner, frame->width()), QStringLiteral("tile_chosen"));
    m_marks[tile]->hide();
    m_frames[tile] = frame;
}

void ChoiceScreen::focusTile(int tile)
{
    m_frames[m_focused]->setStyleSheet(QString::fromLatin1(TileSheet));
    m_frames[tile]->setStyleSheet(QString::fromLatin1(FocusedTileSheet));
    m_focused = tile;
}

void ChoiceScreen::choose(int tile)
{
    m_marks[m_chosen]->hide();
    m_marks[tile]->show();
    m_chosen = tile;
}

void ChoiceScreen::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    const Tile &tile = tiles[m_focused];
    if (isUpKey(key)) {
        focusTile(tile.up);
    } else if (isDownKey(key)) {
        focusTile(tile.down);
    } else if (isLeftKey(key)) {
        focusTile(tile.left);
    } else if (isRightKey(key)) {
        focusTile(tile.right);
    } else if (isOKKey(key)) {
        choose(m_focused);
        m_device.showMessage(text("Saved"));
    } else {
        return Widget::keyReleaseEvent(event);
    }
    playSound(ClickSound);
}

}

Screen choiceScreen()
{
    return {
        "choice",
        "Tiles to choose one from",
        [](Device &device) -> QWidget * { return new ChoiceScreen(device); },
        {
            {"", ""},
            {"short", "right"},
            {"long", "down"},
            {"chosen", "down OK"},
            {"chosen-and-gone-on", "down OK up right"},
            {"right-to-left", "", true},
        },
    };
}
