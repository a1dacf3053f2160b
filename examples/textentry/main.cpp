// Text entry with the digit keys, in three alphabets.
//
// 0 to 9 type, each key its characters one after the other. # and * turn the pages, from small letters to capitals and
// to the next alphabet; F1 and F2 go to Greek and Bulgarian at once. F3 types a space, F4 deletes. OK (the menu key of a
// PC) greets whom was typed. Escape ends the program.

#include "platform/soundmanager.h"
#include "widgetkeypad.h"

#include <QApplication>

namespace {

const int ClickSound = 901;
enum { GreekPage = 2, BulgarianPage = 4, AllPages = 6 };

// What the keys type, from 1 to 9; then where * leads, 0, and where # leads. Wide letters leave no room for the digit.
const char *const pages[AllPages] = {
    ".,?!1 abc2 def3 ghi4 jkl5 mno6 pqrs7 tuv8 wxyz9 *АБВ 0 #ABC",
    ".,?!1 ABC2 DEF3 GHI4 JKL5 MNO6 PQRS7 TUV8 WXYZ9 *abc 0 #αβγ",
    ".,;!1 αβγ2 δεζ3 ηθι4 κλμ5 νξο6 πρσς7 τυφ8 χψω9 *ABC 0 #ΑΒΓ",
    ".,;!1 ΑΒΓ2 ΔΕΖ3 ΗΘΙ4 ΚΛΜ5 ΝΞΟ6 ΠΡΣ7 ΤΥΦ8 ΧΨΩ9 *αβγ 0 #абв",
    ".,?!1 абвг2 дежз3 ийкл4 мноп5 рсту6 фхцч7 шщъ8 ьюя9 *ΑΒΓ 0 #АБВ",
    ".,?!1 АБВГ ДЕЖЗ ИЙКЛ МНОП РСТУ ФХЦЧ ШЩЪ ЬЮЯ *абв 0 #abc",
};

const char *const cellImages[] = {
    "none", "none", "url(:/resource/images_l2/key_space_nor.png)", "url(:/resource/images_l2/key_delete_nor.png)",
};

}

class TextEntry : public WidgetKeypad
{
    Q_OBJECT

public:
    TextEntry();

private Q_SLOTS:
    void turnPage(int key);
    void greet(const QString &name);
};

TextEntry::TextEntry()
    : WidgetKeypad(0, SoundManager::getInstance())
{
    setLineTextHeight(38);
    setKeyMaxLength(12);
    setPlaceholderText("Your name");
    setItemText(ItemButton1, QString::fromUtf8("αβγ"));
    setItemText(ItemButton2, QString::fromUtf8("абв"));
    const QString cellSheet = "background-color: %1; color: %2; border: 1px solid #3C3738; image: %3;";
    for (int i = 0; i < 4; ++i) {
        QString image = cellImages[i];
        setItemStyle(Item(i), StateNormal, cellSheet.arg("#6E6464", "#F8F7F6", image));
        setItemStyle(Item(i), StateSelected, cellSheet.arg("#F7CE86", "#1F1618", image.replace("_nor", "_focus")));
    }
    setKeyMap(Qt::Key_0, 3, 1);
    for (int i = 0; i < 9; ++i)
        setKeyMap(Qt::Key_1 + i, i / 3, i % 3);
    for (int i = 0; i < 12 * AllPages; ++i)
        setKeyText(i / 12, i % 12 / 3, i % 3, QString::fromUtf8(pages[i / 12]).section(' ', i % 12, i % 12));
    connect(this, SIGNAL(keyPressed(int)), this, SLOT(turnPage(int)));
    connect(this, SIGNAL(ready(QString)), this, SLOT(greet(QString)));
    connect(this, SIGNAL(cancel()), this, SLOT(close()));
}

void TextEntry::turnPage(int key)
{
    if (key == Qt::Key_NumberSign || key == Qt::Key_Asterisk)
        changePage(key == Qt::Key_NumberSign);
    else if (key == Qt::Key_F1 || key == Qt::Key_F2)
        setPage(key == Qt::Key_F1 ? GreekPage : BulgarianPage);
    else
        return;
    playSound(ClickSound);
}

void TextEntry::greet(const QString &name)
{
    setPlaceholderText("Hello " + name);
    setInitialLineText(QString(), false, true, false);
}

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");  // a point is a pixel, as on the device
    QApplication application(argc, argv);

    TextEntry entry;
    entry.resize(220, 176);
    entry.show();
    entry.setFocus();
    return application.exec();
}

#include "main.moc"
