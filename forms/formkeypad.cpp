#include "formkeypad.h"

#include "formkeycells.h"

#include "platform/soundmanager.h"

namespace {

const int MaxPages = 6;
const int Rows = 4;
const int Columns = 3;
const int ClickSound = 901;

const char *const DefaultPages[] = {
    ".,?!1 abc2 def3 ghi4 jkl5 mno6 pqrs7 tuv8 wxyz9 * -'@0 #",
    ".,?!1 ABC2 DEF3 GHI4 JKL5 MNO6 PQRS7 TUV8 WXYZ9 * -'@0 #",
    "1 2 3 4 5 6 7 8 9 * 0 #",
};

}

FormKeypad::FormKeypad(QWidget *parent)
    : WidgetKeypad(parent, SoundManager::getInstance()),
      m_isPassword(false),
      m_maxLength(48),
      m_lineTextHeight(38)
{
    FormLook::paintBackground(this);
    WidgetKeypad::setLineTextHeight(m_lineTextHeight);
    setKeyMap(Qt::Key_0, 3, 1);
    for (int digit = 1; digit <= 9; ++digit)
        setKeyMap(Qt::Key_0 + digit, (digit - 1) / Columns, (digit - 1) % Columns);
    dressKeyCells(this);
    QStringList pages;
    for (size_t i = 0; i < sizeof DefaultPages / sizeof DefaultPages[0]; ++i)
        pages += QLatin1String(DefaultPages[i]);
    setPages(pages);
    connect(this, SIGNAL(keyPressed(int)), this, SLOT(turnPage(int)));
}

void FormKeypad::setPages(const QStringList &pages)
{
    m_pages = pages;
    for (int page = 0; page < MaxPages; ++page) {
        const QStringList keys = FormLook::entry(pages, page).simplified().split(QLatin1Char(' '));
        for (int key = 0; key < Rows * Columns; ++key)
            setKeyText(page, key / Columns, key % Columns, FormLook::entry(keys, key));
        enablePage(page, page < pages.size());
    }
    layOut();
}

void FormKeypad::setInitialText(const QString &text)
{
    m_initialText = text;
    setInitialLineText(text, m_isPassword, true, false);
    layOut();
}

void FormKeypad::setPlaceholderText(const QString &text)
{
    m_placeholderText = text;
    WidgetKeypad::setPlaceholderText(text);
}

void FormKeypad::setPassword(bool password)
{
    m_isPassword = password;
    hideText(password);
    setInitialText(m_initialText);
}

void FormKeypad::setMaxLength(int length)
{
    m_maxLength = length;
    setKeyMaxLength(length);
}

void FormKeypad::setLineTextHeight(int height)
{
    m_lineTextHeight = height;
    WidgetKeypad::setLineTextHeight(height);
    layOut();
}

void FormKeypad::setButton1Text(const QString &text)
{
    m_button1Text = text;
    setItemText(ItemButton1, text);
}

void FormKeypad::setButton2Text(const QString &text)
{
    m_button2Text = text;
    setItemText(ItemButton2, text);
}

void FormKeypad::resizeEvent(QResizeEvent *event)
{
    WidgetKeypad::resizeEvent(event);
    layOut();
}

void FormKeypad::turnPage(int key)
{
    if (key != Qt::Key_Asterisk && key != Qt::Key_NumberSign)
        return;
    playSound(ClickSound);
    changePage(key == Qt::Key_NumberSign);
}

void FormKeypad::layOut()
{
    if (isVisible())
        setupUi();
}
