#include "nameentry.h"

#include "platform/soundmanager.h"

namespace {

const int ClickSound = 901;
const int KeysPerPage = 12;
const int Pages = 2;

// What the keys type, from 1 to 9; then *, 0 and #.
const char *const Letters[Pages] = {
    ".,-'1 abc2 def3 ghi4 jkl5 mno6 pqrs7 tuv8 wxyz9 *ABC 0 #ABC",
    ".,-'1 ABC2 DEF3 GHI4 JKL5 MNO6 PQRS7 TUV8 WXYZ9 *abc 0 #abc",
};

const char *const CellImages[] = {
    "none", "none", "url(:/resource/images_l2/key_space_nor.png)", "url(:/resource/images_l2/key_delete_nor.png)",
};

}

NameEntry::NameEntry(QWidget *parent, const QString &name)
    : WidgetKeypad(parent, SoundManager::getInstance())
{
    setLineTextHeight(38);
    setKeyMaxLength(12);
    setPlaceholderText("Name");
    const QString cellSheet = "background-color: %1; color: %2; border: 1px solid #3C3738; image: %3;";
    for (int i = 0; i < 4; ++i) {
        QString image = CellImages[i];
        setItemStyle(Item(i), StateNormal, cellSheet.arg("#6E6464", "#F8F7F6", image));
        setItemStyle(Item(i), StateSelected, cellSheet.arg("#F7CE86", "#1F1618", image.replace("_nor", "_focus")));
    }
    setKeyMap(Qt::Key_0, 3, 1);
    for (int i = 0; i < 9; ++i)
        setKeyMap(Qt::Key_1 + i, i / 3, i % 3);
    for (int i = 0; i < KeysPerPage * Pages; ++i) {
        const int key = i % KeysPerPage;
        setKeyText(i / KeysPerPage, key / 3, key % 3, QString(Letters[i / KeysPerPage]).section(' ', key, key));
    }
    setInitialLineText(name, false, true, false);
    connect(this, SIGNAL(keyPressed(int)), this, SLOT(turnPage(int)));
}

void NameEntry::turnPage(int key)
{
    if (key != Qt::Key_NumberSign && key != Qt::Key_Asterisk)
        return;
    changePage(key == Qt::Key_NumberSign);
    playSound(ClickSound);
}
