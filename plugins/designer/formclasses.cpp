#include "formclasses.h"

#include "formbars.h"
#include "formbuttons.h"
#include "formkeypad.h"
#include "formlabels.h"
#include "formlists.h"
#include "formswitcher.h"
#include "formtime.h"
#include "formtitles.h"

#include <QStringListModel>

namespace {

template <typename Class>
QWidget *create(QWidget *parent)
{
    return new Class(parent);
}

QString sampleSheet(const QString &picture)
{
    return QStringLiteral("image: url(:/libwidget/designer/samples/%1.png);").arg(picture);
}

void showStatusIcons(QWidget *widget)
{
    WidgetStatusBar *bar = static_cast<FormStatusBar *>(widget);
    const char *const pictures[] = {"status_reception_full", "status_phone_connected", "status_message_new",
                                    "status_battery_full"};
    for (int icon = 0; icon < 4; ++icon)
        bar->setStatusUrl(icon, 0, sampleSheet(QString::fromLatin1(pictures[icon])));
}

void showBottomPictures(QWidget *widget)
{
    WidgetBottom *bar = static_cast<FormBottom *>(widget);
    const char *const pictures[] = {"bottom_preset_1", "bottom_stereo", "bottom_ta_on", "bottom_volume_3"};
    for (int picture = 0; picture < 4; ++picture)
        bar->setItemStyle(2 + picture, sampleSheet(QString::fromLatin1(pictures[picture])), QString(), 0);
    bar->statusBottomShow(0, 0, 0, 0);
}

void showIcons(QWidget *widget)
{
    WidgetIconGroup *group = static_cast<FormIconGroup *>(widget);
    const char *const pictures[] = {"radio_signal_strong", "radio_text_on", "radio_tp_on"};
    for (int icon = 0; icon < 3; ++icon)
        group->setIcon(icon, sampleSheet(QString::fromLatin1(pictures[icon])));
    for (int seperator = 0; seperator < 2; ++seperator)
        group->setSeperator(seperator, sampleSheet(QStringLiteral("radio_separator")));
}

void showEntries(QWidget *widget)
{
    WidgetSwitcher *switcher = static_cast<FormSwitcher *>(widget);
    const char *const pictures[] = {"main_radio", "main_clock", "main_route", "main_message", "main_settings", "main_more"};
    for (int entry = 0; entry < 6; ++entry) {
        const QString picture = QString::fromLatin1(pictures[entry]);
        switcher->setItemStyle(3, sampleSheet(picture), QString(), entry);
        switcher->setItemStyle(1, sampleSheet(picture + QStringLiteral("_side")), QString(), entry);
    }
    switcher->selectItem(0);
}

void showContacts(QWidget *widget)
{
    WidgetListView *list = static_cast<FormListView *>(widget);
    list->setModel(new QStringListModel({"Ada Lovelace", "Alan Turing", "Grace Hopper", "Katherine Johnson"}, list));
}

void showTime(QWidget *widget)
{
    static_cast<WidgetClock *>(widget)->updateHMS(10, 42, 30);
}

void showDate(QWidget *widget)
{
    static_cast<WidgetDate *>(widget)->updateDateMonth(3, 7, 6);
}

#define DARK_GROUND "<property name=\"styleSheet\"><string notr=\"true\">background-color: #474242;</string></property>"
#define SOUND_ICON "<string notr=\"true\">image: url(:/resource/images_l2/icon_sound.png);</string>"
#define TEXT(property, text) "<property name=\"" property "\"><string>" text "</string></property>"
#define NUMBER(property, number) "<property name=\"" property "\"><number>" #number "</number></property>"
#define RUNNING "<property name=\"running\"><bool>true</bool></property>"
#define TAKES_KEYS "<property name=\"focusPolicy\"><enum>Qt::StrongFocus</enum></property>"

}

const std::vector<FormClass> &formClasses()
{
    static const std::vector<FormClass> classes = {
        {"WidgetList", "FormList", "QWidget", "formlists.h", "Settings List", "list",
         "A settings menu: a title bar above a column of rows, of which one has the focus.",
         "Up and down move the focus, around the ends or up to them (m_stopAtEnds), past rows that are hidden. Left and "
         "right belong to the row. OK asks for saving, escape ends the menu, a digit selects the row that it was given "
         "to. Every key that does something clicks.",
         TEXT("title", "Sound") "<property name=\"titleIconSheet\">" SOUND_ICON "</property>"
         "<property name=\"rows\"><stringlist><string>Music: Low, High</string><string>Phone: Low, High</string>"
         "<string>Navigation: Low, High</string><string>More &gt;</string></stringlist></property>",
         create<FormList>, nullptr},
        {"WidgetListView", "FormListView", "QWidget", "formlists.h", "Long List", "listView",
         "A settings list over a model: it looks, sounds and works as a WidgetList of text rows does, but its rows are "
         "painted from the application's model, and a row that is not seen costs nothing.",
         "For a settings menu of some twenty rows take WidgetList: its rows are widgets, which an application can dress, "
         "watch and fill with widgets of its own. For a telephone book, a station list or a log, of two hundred to a "
         "hundred thousand rows, take this.",
         TEXT("title", "Contacts") "<property name=\"titleIconSheet\">" SOUND_ICON "</property>",
         create<FormListView>, showContacts},
        {"WidgetListItem", "FormListItem", "QWidget", "formlists.h", "List Row", "listItem",
         "One row of a settings list: a title, and a value that the user changes with the left and right keys; or a row "
         "that leads deeper.",
         "A row has one of three looks, made for a width of 220 and a height of 46 pixels: - a title alone, in the middle "
         "of the height; - a title on the upper line and the value on the lower; - title and value on one line, the value "
         "at the right end (setValueOnRightSide()).",
         TEXT("title", "Volume") "<property name=\"values\"><stringlist><string>Low</string><string>High</string>"
         "</stringlist></property>" TAKES_KEYS,
         create<FormListItem>, nullptr},
        {"WidgetKeypad", "FormKeypad", "QWidget", "formkeypad.h", "Keypad", "keypad",
         "A telephone keypad for entering text with the digit keys.",
         "A key whose text has one character types it at once and is lit for 100 ms. A key with more goes through them, "
         "one with each press within 1200 ms of the last, and starts over after the last one; it stays lit until the "
         "character is final.",
         TEXT("placeholderText", "Name") TEXT("button1Text", "Abc") TEXT("button2Text", "123") TAKES_KEYS,
         create<FormKeypad>, nullptr},
        {"WidgetKeypadBottom", "FormKeypadBottom", "QWidget", "formbuttons.h", "Keypad Bar", "keypadBottom",
         "A bar of four cells, 55 by 23 pixels each, that tell what F1 to F4 do: the bar of a WidgetKeypad, to be used "
         "without one.",
         "F1 to F4 select their cells when they are released. It makes no sound, emits nothing and hands every key on to "
         "its parent.",
         TEXT("button1Text", "Back") TEXT("button2Text", "Menu"),
         create<FormKeypadBottom>, nullptr},
        {"WidgetSwitcher", "FormSwitcher", "QWidget", "formswitcher.h", "Switcher", "switcher",
         "A carousel of six entries for a main menu: the picture of the selected entry in the middle between those of "
         "its neighbours, its name below, and at the bottom six page dots of which one is lit.",
         "The left and right keys turn the carousel around its ends and click; OK clicks and reports the selected entry. "
         "Keys act when they are released.",
         "<property name=\"names\"><stringlist><string>Radio</string><string>Clock</string><string>Route</string>"
         "<string>Message</string><string>Settings</string><string>More</string></stringlist></property>" TAKES_KEYS,
         create<FormSwitcher>, showEntries},
        {"WidgetMenuTitle", "FormMenuTitle", "QWidget", "formtitles.h", "Menu Title", "menuTitle",
         "The title bar of a menu screen: a square icon, a bold title and a small information text in the top corner.",
         "The bar is 220 by 38 pixels, white on dark grey (#474242). The icon stands at the left end and the information "
         "text at the right; where StringRC::m_rightToLeft is set they change sides.",
         TEXT("title", "Menu") "<property name=\"iconSheet\">" SOUND_ICON "</property>",
         create<FormMenuTitle>, nullptr},
        {"WidgetSimpleTitle", "FormSimpleTitle", "QWidget", "formtitles.h", "Simple Title", "simpleTitle",
         "A title bar of one line: white bold text at the left on dark grey (#474242), with an ellipsis where it is too "
         "long.",
         "The bar is 220 by 38 pixels, and so is the title's place: the text begins at x 0, at the very edge, unless "
         "setItemGeometry() moves it. The bar takes no keys and no focus.",
         TEXT("title", "Title")
         "<property name=\"titleRect\"><rect><x>8</x><y>0</y><width>204</width><height>38</height></rect></property>",
         create<FormSimpleTitle>, nullptr},
        {"WidgetStatusBar", "FormStatusBar", "QWidget", "formbars.h", "Status Bar", "statusBar",
         "A strip of four status icons at the right end of its area, each with three states.",
         "The application registers one style sheet per icon and state, usually one that names a picture, and connects "
         "its own status signals to the showItem slots.",
         DARK_GROUND,
         create<FormStatusBar>, showStatusIcons},
        {"WidgetBottom", "FormBottom", "QWidget", "formbars.h", "Bottom Bar", "bottom",
         "A bar at the bottom of a screen: two halves, each with its own background and two status pictures side by side.",
         "The application registers one style sheet per picture and state, usually one that names an image, and sets the "
         "states of all four pictures in one call. The bar takes no keys and no focus.",
         "",
         create<FormBottom>, showBottomPictures},
        {"WidgetBottomGuide", "FormBottomGuide", "QWidget", "formbars.h", "Page Guide", "bottomGuide",
         "The page guide at the bottom of a screen with pages: the current page in white and \"/\" with the number of "
         "pages in grey, meeting in the middle of the widget.",
         "Numbers are shown at once, plainly and with their sign, in the digits 0 to 9.",
         DARK_GROUND NUMBER("page", 1) NUMBER("pageCount", 5),
         create<FormBottomGuide>, nullptr},
        {"WidgetIconGroup", "FormIconGroup", "QWidget", "formbars.h", "Icon Group", "iconGroup",
         "A row of three small icons with a separator between neighbours, for instance in a title bar.",
         "The icons are 20 by 20 pixels and the separators 11 by 11; the row covers 122 by 22 pixels. Each element is "
         "hidden until it is given a style sheet, usually one that names a picture.",
         DARK_GROUND,
         create<FormIconGroup>, showIcons},
        {"WidgetSoftBtn", "FormSoftBtn", "QWidget", "formbuttons.h", "Soft Button", "softBtn",
         "The label of a soft key: a grey face with a bold name in its middle and, on an annotated button, a small extra "
         "label in the top left corner, for instance the number of the key.",
         "The button takes no keys and no focus; the screen that owns it sets its name and looks.",
         TEXT("btnName", "Options"),
         create<FormSoftBtn>, nullptr},
        {"WidgetSelectTile", "FormSelectTile", "QWidget", "formbuttons.h", "Select Tile", "selectTile",
         "A tile of a choice: its content in large bold light text on a transparent ground, in the middle if it fits on "
         "one line, otherwise wrapped at words from the top left, 10 pixels below the edge.",
         "The content is laid out when it is set and whenever the tile is shown; a new size counts from the next show on.",
         DARK_GROUND TEXT("content", "Radio"),
         create<FormSelectTile>, nullptr},
        {"WidgetProgressBar", "FormProgressBar", "QWidget", "formlabels.h", "Progress Bar", "progressBar",
         "A used amount against a capacity, for instance of a memory: a title at the top left, the used amount at the "
         "top right, and below them a flat bar in which the capacity is written.",
         "Numbers have a comma at each three digits. It is made for 220 by 46 pixels. It takes no keys and no focus and "
         "is silent.",
         TEXT("title", "Memory") NUMBER("used", 40000) NUMBER("capacity", 65536),
         create<FormProgressBar>, nullptr},
        {"WidgetClock", "FormClock", "QWidget", "formtime.h", "Clock", "clock",
         "A clock made of pictures: two large digits for the hour, a separator, two large digits for the minute; above "
         "them the mark AM or PM and two small digits for the second, where wanted.",
         "Each picture is a style sheet that the application sets, usually one that names an image. Between start() and "
         "stop() the clock keeps itself current, about a tenth of a second late at most. It is hidden until it first has "
         "a time to show, and from then on shows itself with each time that it gets.",
         DARK_GROUND RUNNING,
         create<FormClock>, showTime},
        {"WidgetDate", "FormDate", "QWidget", "formtime.h", "Date", "date",
         "The date as text: month and day in two digits each, such as 03/07, and the name of the week day, which ends at "
         "x 179.",
         "Between start() and stop() the widget keeps itself current, about a third of a second late at most. It is "
         "hidden until it first has a date to show, and from then on shows itself with each date that it gets.",
         DARK_GROUND RUNNING,
         create<FormDate>, showDate},
        {"WidgetTAMark", "FormTAMark", "QWidget", "formbars.h", "Traffic Announcement", "taMark",
         "The banner of a traffic announcement: one line of large bold white text in the middle of a picture, with an "
         "ellipsis where it is too long.",
         "The banner is 220 pixels wide and as high as the widget when it is shown; a new height counts from the next "
         "show on.",
         TEXT("text", "Fog on the A8"),
         create<FormTAMark>, nullptr},
        {"WidgetMarqueeLable", "FormMarqueeLable", "QLabel", "formlabels.h", "Marquee Label", "marqueeLable",
         "A label whose text circulates: each timer event turns it left by one character, and what leaves at the left "
         "comes back at the right.",
         "The owner sets the three members and starts and kills a timer on the label (QObject::startTimer()); every "
         "timer of the label turns the text, whatever its id.",
         TEXT("text", "A text that circulates, ") NUMBER("interval", 200),
         create<FormMarqueeLable>, nullptr},
    };
    return classes;
}
