#include "formswitcher.h"

#include "formlook.h"

#include "platform/soundmanager.h"

namespace {

const int Entries = 6;

// What is addressed by the numbers of WidgetSwitcher.
enum Item { SidePicture = 1, CentrePicture = 3, Name = 4, PageDots = 5, LitPageDot = 6 };

}

FormSwitcher::FormSwitcher(QWidget *parent)
    : WidgetSwitcher(parent, SoundManager::getInstance()),
      m_initialIndex(0)
{
    FormLook::paintBackground(this);
    setItemStyle(PageDots, FormLook::picture("page_off"), QString(), 0);
    setItemStyle(LitPageDot, FormLook::picture("page_on"), QString(), 0);
    setFontStyle(Name, 16, true, QLatin1String("color: #F8F7F6;"));
}

void FormSwitcher::setNames(const QStringList &names)
{
    m_names = names;
    setEntries(Name, names);
}

void FormSwitcher::setPictureSheets(const QStringList &sheets)
{
    m_pictureSheets = sheets;
    setEntries(CentrePicture, sheets);
}

void FormSwitcher::setSidePictureSheets(const QStringList &sheets)
{
    m_sidePictureSheets = sheets;
    setEntries(SidePicture, sheets);
}

void FormSwitcher::setInitialIndex(int index)
{
    m_initialIndex = index;
    selectItem(index);
}

void FormSwitcher::resizeEvent(QResizeEvent *event)
{
    WidgetSwitcher::resizeEvent(event);
    setAutoPageGeometry();
    selectItem(m_initialIndex);
}

void FormSwitcher::setEntries(int item, const QStringList &styles)
{
    for (int i = 0; i < Entries; ++i)
        setItemStyle(item, FormLook::entry(styles, i), QString(), i);
    selectItem(m_initialIndex);
}
