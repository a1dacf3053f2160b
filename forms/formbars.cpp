#include "formbars.h"

#include "formlook.h"

#include "platform/soundmanager.h"

#include <QShowEvent>

FormStatusBar::FormStatusBar(QWidget *parent)
    : WidgetStatusBar(parent, SoundManager::getInstance()),
      m_iconWidth(23)
{
    FormLook::paintBackground(this);
}

void FormStatusBar::setIconWidth(int width)
{
    m_iconWidth = width;
    placeIcons();
}

void FormStatusBar::resizeEvent(QResizeEvent *event)
{
    WidgetStatusBar::resizeEvent(event);
    placeIcons();
}

void FormStatusBar::setIconSheets(int icon, const QStringList &sheets)
{
    m_sheets[icon] = sheets;
    for (int status = 0; status < 3; ++status)
        setStatusUrl(icon, status, FormLook::entry(sheets, status));
    if (isVisible()) {
        QShowEvent again;
        showEvent(&again);
    }
}

void FormStatusBar::placeIcons()
{
    setBgGeometry(x(), y(), width(), height(), m_iconWidth);
}

FormBottom::FormBottom(QWidget *parent)
    : WidgetBottom(parent, SoundManager::getInstance())
{
    FormLook::paintBackground(this);
    setLeftSheet(QLatin1String("background-color: #474242;"));
    setRightSheet(QLatin1String("background-color: #594B4F;"));
}

void FormBottom::setLeftSheet(const QString &sheet)
{
    m_leftSheet = sheet;
    setItemStyle(0, QString(), sheet, 0);
}

void FormBottom::setRightSheet(const QString &sheet)
{
    m_rightSheet = sheet;
    setItemStyle(1, QString(), sheet, 0);
}

void FormBottom::resizeEvent(QResizeEvent *event)
{
    WidgetBottom::resizeEvent(event);
    setBgGeometry(0, 0, width(), height());
}

void FormBottom::setPictureSheets(int picture, const QStringList &sheets)
{
    const int firstPicture = 2;
    m_sheets[picture] = sheets;
    for (int state = 0; state < 6; ++state)
        setItemStyle(firstPicture + picture, FormLook::entry(sheets, state), QString(), state);
    statusBottomShow(0, 0, 0, 0);
}

FormBottomGuide::FormBottomGuide(QWidget *parent)
    : WidgetBottomGuide(parent, SoundManager::getInstance()),
      m_page(0),
      m_pageCount(0)
{
    FormLook::paintBackground(this);
}

void FormBottomGuide::setPage(int page)
{
    m_page = page;
    setCurPageNo(page);
}

void FormBottomGuide::setPageCount(int count)
{
    m_pageCount = count;
    setTotPageNo(count);
}

void FormBottomGuide::resizeEvent(QResizeEvent *event)
{
    WidgetBottomGuide::resizeEvent(event);
    QShowEvent again;
    showEvent(&again);
}

FormIconGroup::FormIconGroup(QWidget *parent)
    : WidgetIconGroup(parent, SoundManager::getInstance()),
      m_alignment(AlignCenter)
{
    FormLook::paintBackground(this);
}

void FormIconGroup::setIconSheets(const QStringList &sheets)
{
    const int last = qMax(m_iconSheets.size(), sheets.size());
    m_iconSheets = sheets;
    for (int i = 0; i < qMin(last, 3); ++i)
        setIcon(i, FormLook::entry(sheets, i));
}

void FormIconGroup::setSeperatorSheet(const QString &sheet)
{
    m_seperatorSheet = sheet;
    setSeperator(0, sheet);
    setSeperator(1, sheet);
}

void FormIconGroup::setAlignment(Alignment alignment)
{
    m_alignment = alignment;
    // Top and Bottom count from where the icons are.
    setVerticalAlignment(Center);
    if (alignment != AlignCenter)
        setVerticalAlignment(VerticalAlignment(alignment));
}

FormTAMark::FormTAMark(QWidget *parent)
    : WidgetTAMark(parent, SoundManager::getInstance())
{
    FormLook::paintBackground(this);
}

void FormTAMark::setText(const QString &text)
{
    m_text = text;
    updateTAText(text);
}

void FormTAMark::resizeEvent(QResizeEvent *event)
{
    WidgetTAMark::resizeEvent(event);
    QShowEvent again;
    showEvent(&again);
}
