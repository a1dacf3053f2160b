// Notes to read, with the bar that tells what F1 to F4 do.

#include "device.h"
#include "keycells.h"
#include "parts.h"
#include "screen.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetkeypadbottom.h"
#include "widgetmenutitle.h"

#include <QKeyEvent>
#include <QLabel>
#include <QStringList>
#include <QTimer>

namespace {

const int TitleHeight = 38;
const int BarHeight = 23;
const int NoteMargin = 10;
const int SmallText = 14;
const int LargeText = 20;
const int ClickSound = 901;
const int FlashTime = 100;

const char *const firstNotes[] = {
    "Bread, milk, apples and coffee. A fuse for the radio, the red one.",
    "The tunnel is closed until Sunday. Take the road along the coast.",
    "Anna's birthday! Call her before noon.",
};

class NotesScreen : public Widget
{
public:
    explicit NotesScreen(Device &device);

protected:
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void showNote();
    void dressNote();

    void goToNextNote();
    void deleteNote();
    void flash(WidgetKeypadBottom::Item item);
    void turn(bool &on);

    Device &m_device;
    WidgetMenuTitle *m_title;
    QLabel *m_note;
    WidgetKeypadBottom *m_bar;

    QStringList m_notes;
    int m_current = 0;
    bool m_large = false;
    bool m_dark = false;
};

NotesScreen::NotesScreen(Device &device)
    : Widget(&device, SoundManager::getInstance()),
      m_device(device),
      m_title(new WidgetMenuTitle(this, nullptr)),
      m_note(new QLabel(this)),
      m_bar(new WidgetKeypadBottom(this))
{
    m_title->setAttribute(Qt::WA_StyledBackground);
    m_title->setItemStyle(WidgetMenuTitle::ItemIcon, pictureSheet(QStringLiteral("icon_notes")));

    m_note->setGeometry(0, TitleHeight, Device::Width, Device::Height - TitleHeight - BarHeight);
    m_note->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setMargin(NoteMargin);
    m_note->setIndent(0);

    m_bar->setBgGeometry(0, Device::Height - BarHeight, Device::Width, BarHeight);
    dressKeyCells(m_bar, QStringLiteral("key_dark"), QStringLiteral("key_bin"));
    m_bar->setItemText(WidgetKeypadBottom::ItemButton1, text("Next"));
    m_bar->setItemText(WidgetKeypadBottom::ItemButton2, text("Large"));
    // It lights its cells by itself and hands the keys on to this screen.
    setFocusProxy(m_bar);

    for (const char *note : firstNotes)
        m_notes += text(note);
    dressNote();
}

void NotesScreen::showNote()
{
    if (m_notes.isEmpty()) {
        m_title->setTitle(text("No notes"));
        m_note->clear();
        return;
    }
    m_title->setTitle(text("Note %1 of %2").arg(m_current + 1).arg(m_notes.size()));
    m_note->setText(brokenIntoLines(m_notes.at(m_current), m_note->font(), m_note->width() - 2 * NoteMargin));
}

void NotesScreen::dressNote()
{
    QFont font;
    font.setPointSize(m_large ? LargeText : SmallText);
    m_note->setFont(font);
    m_note->setStyleSheet(m_dark ? QStringLiteral("color: #f7ce86; background-color: #1f1618;")
                                 : QStringLiteral("color: #1f1618; background-color: #f8f7f6;"));
    showNote();
}

void NotesScreen::keyReleaseEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_F1:
        goToNextNote();
        break;
    case Qt::Key_F2:
        turn(m_large);
        break;
    case Qt::Key_F3:
        turn(m_dark);
        break;
    case Qt::Key_F4:
        deleteNote();
        break;
    default:
        Widget::keyReleaseEvent(event);
        break;
    }
}

void NotesScreen::goToNextNote()
{
    playSound(ClickSound);
    flash(WidgetKeypadBottom::ItemButton1);
    if (!m_notes.isEmpty())
        m_current = (m_current + 1) % m_notes.size();
    showNote();
}

void NotesScreen::deleteNote()
{
    playSound(ClickSound);
    flash(WidgetKeypadBottom::ItemDelete);
    if (m_notes.isEmpty())
        return;
    m_notes.removeAt(m_current);
    if (m_current == m_notes.size())
        m_current = 0;
    showNote();
    m_device.showMessage(text("Note deleted"));
}

// The bar leaves a cell lit. Where the key has done its work that is for the screen to end.
void NotesScreen::flash(WidgetKeypadBottom::Item item)
{
    QTimer::singleShot(FlashTime, m_bar, [this, item] {
        // Another cell may have been selected since.
        m_bar->handleSelection(item);
        m_bar->clearSelection();
    });
}

// Where the key turns something on and off, the cell stays lit for as long as that is on.
void NotesScreen::turn(bool &on)
{
    playSound(ClickSound);
    on = !on;
    if (!on)
        m_bar->clearSelection();
    dressNote();
}

}

Screen notesScreen()
{
    return {
        "notes",
        "Notes to read, with a bar for F1 to F4",
        [](Device &device) -> QWidget * { return new NotesScreen(device); },
        {
            {"", ""},
            {"next-lit", "F1"},
            {"next", "F1 wait:150"},
            {"large", "F2"},
            {"large-dark", "F2 F3"},
            {"dark-next", "F3 F1 wait:150"},
            {"large-off", "F2 F2"},
            {"deleted", "F4 wait:150"},
            {"all-deleted", "F4 F4 F4 F1 wait:150"},
            {"right-to-left", "", true},
        },
    };
}
