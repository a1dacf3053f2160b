// The user guide: left and right (or F3 and F4) turn its pages, up and down (or F1 and F2) change the size of the text.

#include "device.h"
#include "parts.h"
#include "screen.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetbottomguide.h"
#include "widgetsimpletitle.h"
#include "widgetsoftbtn.h"

#include <QKeyEvent>
#include <QLabel>

#include <algorithm>
#include <vector>

namespace {

const int ClickSound = 901;
const QRect TextPlace(8, 42, 204, 90);
const int SmallPointSize = 12;
const int LargePointSize = 15;
const QRect GuidePlace(0, 132, 220, 16);
const QRect ButtonPlace(1, 148, 53, 27);
const int ButtonStep = 55;
const int ButtonPointSize = 11;

// The name stands below the mark.
const char EnabledName[] = "color: #FFFFFF; padding-top: 9px;";
const char DisabledName[] = "color: #A89F9F; padding-top: 9px;";

struct Chapter
{
    const char *title;
    const char *text;
};

const Chapter chapters[] = {
    {"Welcome",
     "This device is worked by keys alone. The keys with arrows lead through menus, OK opens or saves, and ESC goes "
     "back. Wherever you come back to, all is as you left it."},
    {"Main menu",
     "Left and right turn the menu. On the keys 1, 3, 7 and 9 you can try what the status bar shows: reception, "
     "phone, messages and battery."},
    {"Radio and traffic announcements",
     "Left and right choose one of six stations, up and down the volume, and OK switches traffic announcements on "
     "and off. Key 5 lets one come in; it goes by itself, or with ESC."},
    {"Writing",
     "Press a key several times to come to its second and third letter. Wait for a moment before you write another "
     "letter of the same key. The keys * and # lead to capitals and digits."},
    {"Memory",
     "Up and down choose a memory. Left frees some of it, right fills it again, and OK deletes all that is in it."},
};
const int ChapterCount = int(sizeof chapters / sizeof chapters[0]);

struct Page
{
    int chapter = 0;
    int start = 0;  // in the text of the chapter
    QString text;
};

// The buttons of F1 to F4 from left to right. Those for turning pages change places where texts are written from right
// to left, as do the keys for left and right.
enum Button { Larger, Smaller, Back, Next, ButtonCount };

const char *const buttonNames[ButtonCount] = {"Larger", "Smaller", "Back", "Next"};

int placeOfButton(int button)
{
    return writesRightToLeft() && button >= Back ? Back + Next - button : button;
}

QFont readingFont(int pointSize)
{
    QFont font;
    font.setPointSize(pointSize);
    return font;
}

void addPages(std::vector<Page> &pages, int chapter, const QFont &font)
{
    const int linesOfPage = TextPlace.height() / QFontMetrics(font).lineSpacing();
    int count = 0;
    for (const TextLine &line : linesOf(text(chapters[chapter].text), font, TextPlace.width())) {
        if (count++ % linesOfPage == 0)
            pages.push_back({chapter, line.start, line.text});
        else
            pages.back().text += QLatin1Char('\n') + line.text;
    }
}

bool isBefore(const Page &a, const Page &b)
{
    return a.chapter != b.chapter ? a.chapter < b.chapter : a.start < b.start;
}

class ReaderScreen : public Widget
{
public:
    explicit ReaderScreen(Device &device);

protected:
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void addGuide();
    void addButtons();
    void addButton(int button);
    void setPointSize(int pointSize);
    void turnTo(int page);
    void enable(Button button, bool enabled);

    WidgetSimpleTitle *m_title;
    QLabel *m_text;
    WidgetBottomGuide *m_guide = nullptr;
    WidgetSoftBtn *m_buttons[ButtonCount] = {};
    std::vector<Page> m_pages;
    int m_page = 0;
};

ReaderScreen::ReaderScreen(Device &device)
    : Widget(&device, SoundManager::getInstance())
{
    m_title = addTitleBar(this, QString(), QStringLiteral("icon_guide"));
    m_text = addLabel(this, TextPlace, SmallPointSize, false, QStringLiteral("#1F1618"));
    m_text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    addGuide();
    addButtons();
    setPointSize(SmallPointSize);
}

void ReaderScreen::addGuide()
{
    QWidget *ground = new QWidget(this);
    ground->setGeometry(0, GuidePlace.top(), Device::Width, Device::Height - GuidePlace.top());
    // Dark enough for the grey in which the guide shows the number of pages.
    ground->setStyleSheet(QStringLiteral("background-color: #1F1618;"));
    m_guide = new WidgetBottomGuide(this, SoundManager::getInstance());
    m_guide->setGeometry(GuidePlace);
}

void ReaderScreen::addButtons()
{
    for (int button = 0; button < ButtonCount; ++button)
        addButton(button);
}

void ReaderScreen::addButton(int button)
{
    const int place = placeOfButton(button);
    WidgetSoftBtn *softBtn = new WidgetSoftBtn(true, this, SoundManager::getInstance());
    softBtn->setAttribute(Qt::WA_StyledBackground);
    softBtn->setItemGeometry(WidgetSoftBtn::ItemBackground, ButtonPlace.x() + place * ButtonStep, ButtonPlace.y(),
                             ButtonPlace.width(), ButtonPlace.height());
    softBtn->setItemStyle(WidgetSoftBtn::ItemBackground, QStringLiteral("background-color: #594B4F;"));
    softBtn->setItemStyle(WidgetSoftBtn::ItemAnnotation,
                          QStringLiteral("background: transparent; ")
                              + pictureSheet(QStringLiteral("key_f%1").arg(place + 1)));
    softBtn->setBtnName(text(buttonNames[button]));
    m_buttons[button] = softBtn;
}

void ReaderScreen::setPointSize(int pointSize)
{
    const Page reading = m_pages.empty() ? Page() : m_pages[m_page];
    m_text->setFont(readingFont(pointSize));
    m_pages.clear();
    for (int chapter = 0; chapter < ChapterCount; ++chapter)
        addPages(m_pages, chapter, m_text->font());
    m_guide->setTotPageNo(int(m_pages.size()));
    enable(Smaller, pointSize > SmallPointSize);
    enable(Larger, pointSize < LargePointSize);
    // To the page where the one that was open begins.
    turnTo(int(std::upper_bound(m_pages.begin(), m_pages.end(), reading, isBefore) - m_pages.begin()) - 1);
}

void ReaderScreen::turnTo(int page)
{
    m_page = qBound(0, page, int(m_pages.size()) - 1);
    m_title->setTitle(text(chapters[m_pages[m_page].chapter].title));
    m_text->setText(m_pages[m_page].text);
    m_guide->setCurPageNo(m_page + 1);
    enable(Back, m_page > 0);
    enable(Next, m_page + 1 < int(m_pages.size()));
}

void ReaderScreen::enable(Button button, bool enabled)
{
    m_buttons[button]->setFontStyle(WidgetSoftBtn::ItemName, ButtonPointSize, true,
                                    QLatin1String(enabled ? EnabledName : DisabledName));
}

void ReaderScreen::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (isUpKey(key) || key == Qt::Key_F1)
        setPointSize(LargePointSize);
    else if (isDownKey(key) || key == Qt::Key_F2)
        setPointSize(SmallPointSize);
    else if (isBackKey(this, key) || key == Qt::Key_F1 + placeOfButton(Back))
        turnTo(m_page - 1);
    else if (isForwardKey(this, key) || key == Qt::Key_F1 + placeOfButton(Next))
        turnTo(m_page + 1);
    else
        return Widget::keyReleaseEvent(event);
    playSound(ClickSound);
}

}

Screen readerScreen()
{
    return {
        "reader",
        "The user guide, with pages to turn",
        [](Device &device) -> QWidget * { return new ReaderScreen(device); },
        {
            {"", ""},
            {"next-page", "right"},
            {"long-title", "right right"},
            {"last-page", "right right right right right right right right right"},
            {"large", "F1"},
            {"large-next-page", "F1 F4"},
            {"large-in-the-middle", "right F1"},
            {"right-to-left", "", true},
        },
    };
}
