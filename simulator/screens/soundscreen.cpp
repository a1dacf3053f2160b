// The menu behind the first row of the settings: it stops at its ends.

#include "device.h"
#include "rows.h"
#include "screen.h"
#include "texts.h"

#include "platform/desktop/desktopsound.h"
#include "platform/soundmanager.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

namespace {

const int RowCount = 5;

class SoundScreen : public WidgetList
{
public:
    explicit SoundScreen(Device &device);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addKeyClicks();
    void addTone(const QString &title);
    void addBalance();
    void addSpeedDependence();

    void save();
    void leave();

    Device &m_device;
};

SoundScreen::SoundScreen(Device &device)
    : WidgetList(RowCount, &device, SoundManager::getInstance()),
      m_device(device)
{
    m_stopAtEnds = true;
    setTitleBar(this, text("Sound"), QStringLiteral("icon_sound.png"));
    addSaveGuide(this);

    addKeyClicks();
    addTone(text("Bass"));
    addTone(text("Treble"));
    addBalance();
    addSpeedDependence();

    connect(this, &WidgetList::doSave, this, &SoundScreen::save);
    connect(this, &Widget::finished, this, &SoundScreen::leave);
    connect(this, &WidgetList::reachedBegin, this, [this] { m_device.showMessage(text("First row")); });
    connect(this, &WidgetList::reachedEnd, this, [this] { m_device.showMessage(text("Last row")); });
}

void SoundScreen::addKeyClicks()
{
    WidgetListItem *row = addRow(this, text("Key clicks"));
    row->addValue(fromWritingSide(text("On")));
    row->addValue(fromWritingSide(text("Off")));
    row->setDisplayValueIndex(Desktop::isMuted() ? 1 : 0);
    connect(row, &WidgetListItem::doChange, this, [row] {
        Desktop::setMuted(row->getDisplayValue() == fromWritingSide(text("Off")));
    });
}

void SoundScreen::addTone(const QString &title)
{
    WidgetListItem *row = addRow(this, title);
    for (int level = -3; level <= 3; ++level)
        row->addValue(fromWritingSide(level > 0 ? QStringLiteral("+%1").arg(level) : QString::number(level)));
    row->setDisplayValueIndex(3);
}

void SoundScreen::addBalance()
{
    WidgetListItem *row = addRow(this, text("Balance"));
    for (int left = 3; left >= 1; --left)
        row->addValue(fromWritingSide(text("Left %1").arg(left)));
    row->addValue(fromWritingSide(text("Centre")));
    for (int right = 1; right <= 3; ++right)
        row->addValue(fromWritingSide(text("Right %1").arg(right)));
    row->setDisplayValueIndex(3);
}

void SoundScreen::addSpeedDependence()
{
    WidgetListItem *row = addRow(this, text("Speed-dependent volume"));
    row->addValue(fromWritingSide(text("Off")));
    row->addValue(fromWritingSide(text("Low")));
    row->addValue(fromWritingSide(text("High")));
}

void SoundScreen::showEvent(QShowEvent *event)
{
    WidgetList::showEvent(event);
    backup();
}

void SoundScreen::save()
{
    m_device.showMessage(isModified() ? text("Saved") : text("Nothing to save"));
    backup();
}

void SoundScreen::leave()
{
    const bool lost = isModified();
    m_device.back();
    if (lost)
        m_device.showMessage(text("Changes not saved"));
}

}

Screen soundScreen()
{
    return {
        "sound",
        "A deeper menu, which stops at its ends",
        [](Device &device) -> QWidget * { return new SoundScreen(device); },
        {
            {"", ""},
            {"first-row", "up"},
            {"last-row", "down down down down down"},
            {"right-to-left", "down", true},
        },
    };
}
