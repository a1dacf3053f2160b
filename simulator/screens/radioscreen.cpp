// The radio: left and right choose a station, up and down the volume, OK switches traffic announcements on and off.
// Key 5 stands in for a station that sends one; it comes in over the screen.

#include "device.h"
#include "parts.h"
#include "screen.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetbottom.h"
#include "widgeticongroup.h"
#include "widgetsimpletitle.h"
#include "widgettamark.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace {

const int ClickSound = 901;
const int AnnouncementTime = 6000;  // milliseconds

const QRect TitlePlace(43, 0, 40, 38);
const QRect IconGroupPlace(90, 7, 122, 22);
const int Margin = 10;
const int FrequencyBaseline = 71;
const int FrequencyPointSize = 30;
const int UnitPointSize = 14;
const int UnitGap = 5;
const QRect PresetPlace(170, 43, 40, 34);
const QRect NamePlace(10, 81, 200, 19);
const QRect ProgrammePlace(10, 99, 200, 16);
const QRect ScalePlace(0, 118, 220, 28);
const QRect BottomPlace(0, 146, 220, 30);
const QRect AnnouncementPlace(0, 38, 220, 44);

struct Station
{
    int frequency;  // in tenths of a megahertz
    const char *name;
    const char *programme;
    bool isStrong;
    bool isStereo;
    bool hasTraffic;
};

const Station stations[] = {
    {894, "Radio North", "Evening concert from the old harbour, with the city orchestra", true, true, true},
    {921, "City 92", "Local news at half past", true, true, true},
    {958, "Wave of chamber and organ music", "Johann Sebastian Bach: French suites", true, true, false},
    {985, "Traffic radio", "", true, false, true},
    {1013, "Jazz after midnight", "Live at the village", true, true, false},
    {1067, "Campus", "", false, false, false},
};
const int StationCount = int(sizeof stations / sizeof stations[0]);

const char *const announcements[] = {
    "Fog on the A8",
    "A8 northbound: jam of 12 km after an accident",
};
const int AnnouncementCount = int(sizeof announcements / sizeof announcements[0]);

const int LoudestVolume = 5;

// The icons in the title bar and the pictures in the bar at the bottom, in the direction of writing.
enum TitleIcon { SignalIcon, TextIcon, TrafficIcon, TitleIconCount };
enum BottomPicture { PresetPicture, StereoPicture, TrafficPicture, VolumePicture, BottomPictureCount };

// What is addressed by the numbers of WidgetBottom, from left to right.
enum BottomItem { LeftArea, RightArea, FirstPicture };
enum StereoState { Stereo, Mono };
enum TrafficState { TrafficOff, TrafficOn, TrafficOnAir };

/// The scale of a tuner from 88 to 108 MHz. Numbers run from left to right in all languages.
class TunerScale : public QWidget
{
public:
    explicit TunerScale(QWidget *parent)
        : QWidget(parent)
    {
    }

    void setFrequency(int frequency)
    {
        m_frequency = frequency;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(0x1f1618));
        QFont small;
        small.setPointSize(9);
        painter.setFont(small);
        for (int megahertz = 88; megahertz <= 108; ++megahertz) {
            const bool hasNumber = megahertz % 4 == 0;
            const int x = position(megahertz * 10);
            painter.fillRect(x, 2, 1, hasNumber ? 10 : 6, QColor(hasNumber ? 0xf8f7f6 : 0x8c8282));
            if (hasNumber) {
                painter.setPen(QColor(0xf8f7f6));
                painter.drawText(QRect(x - 15, 13, 31, 13), Qt::AlignCenter, QString::number(megahertz));
            }
        }
        painter.fillRect(position(m_frequency) - 1, 0, 3, 14, QColor(0xf7ce86));
    }

private:
    static int position(int frequency) { return 20 + qRound((frequency - 880) * 0.9); }

    int m_frequency = 0;
};

class RadioScreen : public Widget
{
public:
    explicit RadioScreen(Device &device);

protected:
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void addTitle();
    void addStation();
    void addBottomBar();
    void addAnnouncement();

    void tune(int station);
    void showFrequency(int frequency);
    void setVolume(int volume);
    void switchTraffic();
    void announce();
    void endAnnouncement();
    void showStatus();

    Device &m_device;
    WidgetIconGroup *m_icons = nullptr;
    QLabel *m_frequency = nullptr;
    QLabel *m_unit = nullptr;
    QLabel *m_preset = nullptr;
    QLabel *m_name = nullptr;
    QLabel *m_programme = nullptr;
    TunerScale *m_scale = nullptr;
    WidgetBottom *m_bottom = nullptr;
    WidgetTAMark *m_announcement = nullptr;
    QTimer m_announcementTimer;

    int m_station = 0;
    int m_volume = 3;
    bool m_trafficOn = true;
    int m_nextAnnouncement = 0;
};

RadioScreen::RadioScreen(Device &device)
    : Widget(&device, SoundManager::getInstance()),
      m_device(device)
{
    addTitle();
    addStation();
    addBottomBar();
    addAnnouncement();
    tune(0);
}

void RadioScreen::addTitle()
{
    WidgetSimpleTitle *title = addTitleBar(this, QString(), QStringLiteral("icon_radio"));
    placeTitle(title, TitlePlace);
    title->setTitle(text("FM"));

    m_icons = new WidgetIconGroup(title, SoundManager::getInstance());
    m_icons->setGeometry(placeForWriting(IconGroupPlace, Device::Width));
    for (int i = 0; i < 2; ++i)
        m_icons->setSeperator(i, pictureSheet(QStringLiteral("radio_separator")));
}

void RadioScreen::addStation()
{
    const QString ink = QStringLiteral("#1F1618");
    const QString softInk = QStringLiteral("#594B4F");
    m_frequency = addLabel(this, QRect(), FrequencyPointSize, true, ink);
    m_unit = addLabel(this, QRect(), UnitPointSize, true, ink);
    m_unit->setText(QStringLiteral("MHz"));
    m_preset = addLabel(this, placeForWriting(PresetPlace, Device::Width), 16, true, softInk);
    m_preset->setAlignment((writesRightToLeft() ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    m_name = addLabel(this, NamePlace, 15, true, ink);
    m_programme = addLabel(this, ProgrammePlace, 12, false, softInk);
    m_scale = new TunerScale(this);
    m_scale->setGeometry(ScalePlace);
}

void RadioScreen::addBottomBar()
{
    m_bottom = new WidgetBottom(this, SoundManager::getInstance());
    m_bottom->setGeometry(BottomPlace);
    m_bottom->setBgGeometry(0, 0, BottomPlace.width(), BottomPlace.height());
    const auto setArea = [this](int area, const char *color) {
        m_bottom->setItemStyle(area, QString(), QStringLiteral("background-color: %1;").arg(QLatin1String(color)), 0);
    };
    const auto setPicture = [this](BottomPicture picture, int state, const QString &name) {
        m_bottom->setItemStyle(FirstPicture + placeForWriting(picture, BottomPictureCount), pictureSheet(name), QString(),
                               state);
    };
    setArea(writesRightToLeft() ? RightArea : LeftArea, "#474242");
    setArea(writesRightToLeft() ? LeftArea : RightArea, "#594B4F");
    for (int i = 0; i < StationCount; ++i)
        setPicture(PresetPicture, i, QStringLiteral("bottom_preset_%1").arg(i + 1));
    setPicture(StereoPicture, Stereo, QStringLiteral("bottom_stereo"));
    setPicture(StereoPicture, Mono, QStringLiteral("bottom_mono"));
    setPicture(TrafficPicture, TrafficOff, QStringLiteral("bottom_ta_off"));
    setPicture(TrafficPicture, TrafficOn, QStringLiteral("bottom_ta_on"));
    setPicture(TrafficPicture, TrafficOnAir, QStringLiteral("bottom_ta_air"));
    for (int volume = 0; volume <= LoudestVolume; ++volume)
        setPicture(VolumePicture, volume, QStringLiteral("bottom_volume_%1").arg(volume));
}

void RadioScreen::addAnnouncement()
{
    m_announcement = new WidgetTAMark(this, SoundManager::getInstance());
    m_announcement->setGeometry(AnnouncementPlace);
    m_announcement->hide();
    m_announcementTimer.setSingleShot(true);
    connect(&m_announcementTimer, &QTimer::timeout, this, [this] { endAnnouncement(); });
}

void RadioScreen::tune(int station)
{
    m_station = (station + StationCount) % StationCount;
    const Station &now = stations[m_station];
    showFrequency(now.frequency);
    m_preset->setText(QStringLiteral("P%1").arg(m_station + 1));
    showElided(m_name, fromWritingSide(text(now.name)));
    showElided(m_programme, fromWritingSide(text(now.programme)));
    m_scale->setFrequency(now.frequency);
    const auto setIcon = [this](TitleIcon icon, const char *name) {
        m_icons->setIcon(placeForWriting(icon, TitleIconCount), pictureSheet(QLatin1String(name)));
    };
    setIcon(SignalIcon, now.isStrong ? "radio_signal_strong" : "radio_signal_weak");
    setIcon(TextIcon, *now.programme ? "radio_text_on" : "radio_text_off");
    setIcon(TrafficIcon, now.hasTraffic ? "radio_tp_on" : "radio_tp_off");
    endAnnouncement();
}

/// The number and its unit stay in this order in all languages, and on one line, however wide the number is.
void RadioScreen::showFrequency(int frequency)
{
    m_frequency->setText(QStringLiteral("%1.%2").arg(frequency / 10).arg(frequency % 10));
    const QSize number = m_frequency->sizeHint();
    const QSize unit = m_unit->sizeHint();
    const int width = number.width() + UnitGap + unit.width();
    const int x = writesRightToLeft() ? Device::Width - Margin - width : Margin;
    const auto onLine = [](const QLabel *label) { return FrequencyBaseline - label->fontMetrics().ascent(); };
    m_frequency->setGeometry(QRect(QPoint(x, onLine(m_frequency)), number));
    m_unit->setGeometry(QRect(QPoint(x + width - unit.width(), onLine(m_unit)), unit));
}

void RadioScreen::setVolume(int volume)
{
    m_volume = qBound(0, volume, LoudestVolume);
    showStatus();
}

void RadioScreen::switchTraffic()
{
    m_trafficOn = !m_trafficOn;
    endAnnouncement();
}

void RadioScreen::announce()
{
    if (!m_trafficOn)
        return m_device.showMessage(text("Announcements are off"));
    if (!stations[m_station].hasTraffic)
        return m_device.showMessage(text("No announcements here"));
    m_announcement->updateTAText(text(announcements[m_nextAnnouncement]));
    m_nextAnnouncement = (m_nextAnnouncement + 1) % AnnouncementCount;
    m_announcement->show();
    m_announcementTimer.start(AnnouncementTime);
    showStatus();
}

void RadioScreen::endAnnouncement()
{
    m_announcementTimer.stop();
    m_announcement->hide();
    showStatus();
}

void RadioScreen::showStatus()
{
    const int traffic = m_announcementTimer.isActive() ? TrafficOnAir : m_trafficOn ? TrafficOn : TrafficOff;
    int states[BottomPictureCount];
    const auto setState = [&states](BottomPicture picture, int state) {
        states[placeForWriting(picture, BottomPictureCount)] = state;
    };
    setState(PresetPicture, m_station);
    setState(StereoPicture, stations[m_station].isStereo ? Stereo : Mono);
    setState(TrafficPicture, traffic);
    setState(VolumePicture, m_volume);
    m_bottom->statusBottomShow(states[0], states[1], states[2], states[3]);
}

void RadioScreen::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (isLeftKey(key))
        tune(m_station - 1);
    else if (isRightKey(key))
        tune(m_station + 1);
    else if (isUpKey(key))
        setVolume(m_volume + 1);
    else if (isDownKey(key))
        setVolume(m_volume - 1);
    else if (isOKKey(key))
        switchTraffic();
    else if (key == Qt::Key_5)
        announce();
    else if (key == Qt::Key_Escape && m_announcementTimer.isActive())
        endAnnouncement();
    else
        return Widget::keyReleaseEvent(event);
    playSound(ClickSound);
}

}

Screen radioScreen()
{
    return {
        "radio",
        "A radio that traffic announcements come in over",
        [](Device &device) -> QWidget * { return new RadioScreen(device); },
        {
            {"", ""},
            {"next-station", "right"},
            {"long-name", "right right"},
            {"mono", "left"},
            {"loud", "up up"},
            {"silent", "down down down"},
            {"announcement", "5"},
            {"long-announcement", "5 5"},
            {"announcement-ended", "5 ESC"},
            {"announcements-off", "OK"},
            {"no-announcement", "OK 5"},
            {"right-to-left", "", true},
            {"right-to-left-announcement", "5", true},
        },
    };
}
