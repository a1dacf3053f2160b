// The user guide: left and right (or F3 and F4) turn its pages, up and down (or F1 and F2) change the size of the text.

#include "device.h"
#include "parts.h"
#include "screens.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetbottomguide.h"
#include "widgetsimpletitle.h"
#include "widgetsoftbtn.h"

#include <QKeyEvent>
#include <QLabel>
#include <QTextLayout>

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

// The buttons of F1 to F4.
enum Button { Larger, Smaller, Back, Next, ButtonCount };

const char *const buttonNames[ButtonCount] = {"Larger", "Smaller", "Back", "Next"};

QFont readingFont(int pointSize)
{
    QFont font;
    font.setPointSize(pointSize);
    return font;
}

void addPages(std::vector<Page> &pages, int chapter, const QFont &font)
{
    const int linesOfPage = TextPlace.height() / QFontMetrics(font).lineSpacing();
    const QString all = text(chapters[chapter].text);
    QTextLayout layout(all, font);
    layout.beginLayout();
    int count = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(TextPlace.width());
        if (count++ % linesOfPage == 0)
            pages.push_back({chapter, line.textStart(), QString()});
        pages.back().text += all.mid(line.textStart(), line.textLength()).trimmed() + QLatin1Char('\n');
    }
    layout.endLayout();
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
    ground->setStyleSheet(QStringLiteral("background-color: #474242;"));
    m_guide = new WidgetBottomGuide(this, SoundManager::getInstance());
    m_guide->setGeometry(GuidePlace);
}

void ReaderScreen::addButtons()
{
    for (int i = 0; i < ButtonCount; ++i) {
        WidgetSoftBtn *button = new WidgetSoftBtn(true, this, SoundManager::getInstance());
        button->setAttribute(Qt::WA_StyledBackground);
        button->setItemGeometry(WidgetSoftBtn::ItemBackground, ButtonPlace.x() + i * ButtonStep, ButtonPlace.y(),
                                ButtonPlace.width(), ButtonPlace.height());
        button->setItemStyle(WidgetSoftBtn::ItemBackground, QStringLiteral("background-color: #594B4F;"));
        button->setItemStyle(WidgetSoftBtn::ItemAnnotation,
                             QStringLiteral("background: transparent; ")
                                 + pictureSheet(QStringLiteral("key_f%1").arg(i + 1)));
        button->setBtnName(text(buttonNames[i]));
        m_buttons[i] = button;
    }
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
                                    enabled ? QStringLiteral("color: #FFFFFF;") : QStringLiteral("color: #8C8282;"));
}

void ReaderScreen::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (isUpKey(key) || key == Qt::Key_F1)
        setPointSize(LargePointSize);
    else if (isDownKey(key) || key == Qt::Key_F2)
        setPointSize(SmallPointSize);
    else if (isLeftKey(key) || key == Qt::Key_F3)
        turnTo(m_page - 1);
    else if (isRightKey(key) || key == Qt::Key_F4)
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
