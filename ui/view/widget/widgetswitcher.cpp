#include "widgetswitcher.h"

#include "widgetdetails.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPixmap>

namespace {

const char SourcePath[] = "ui/view/widget/widgetswitcher.cpp";

enum SwitcherItem {
    SwitcherItself,
    LeftPicture,
    RightPicture,
    CentrePicture,
    Name,
    PagesOff,
    PageOn
};

const int PageOffStep = 10;
const int PageOnGap = 4;

QLabel *newPicture(QWidget *parent)
{
    QLabel *picture = new QLabel(parent);
    picture->setScaledContents(true);
    return picture;
}

}

WidgetSwitcher::WidgetSwitcher(QWidget *parent, SoundManager *sound)
    : Widget(parent, sound),
      m_currentIndex(0)
{
    const Qt::Alignment nameAlignment = Qt::AlignHCenter | Qt::AlignTop;

    m_layout = new QGridLayout(this);
    m_layout->setContentsMargins(3, 20, 3, 0);

    m_leftLabel = newPicture(this);
    m_layout->addWidget(m_leftLabel, 0, 0);
    m_centreLabel = newPicture(this);
    m_layout->addWidget(m_centreLabel, 0, 1);
    m_rightLabel = newPicture(this);
    m_layout->addWidget(m_rightLabel, 0, 2);
    m_nameLabel = new QLabel(this);
    m_nameLabel->setAlignment(nameAlignment);
    m_layout->addWidget(m_nameLabel, 1, 0, 1, 3, nameAlignment);
    m_pageArea = new QWidget(this);
    m_layout->addWidget(m_pageArea, 2, 0, 1, 3);
    m_pageOnLabel = new QLabel(m_pageArea);
    for (int i = 0; i < EntryCount; ++i) {
        m_pageOffLabels[i] = new QLabel(m_pageArea);
        m_selectable[i] = true;
    }

    m_layout->setRowStretch(0, 20);
    m_layout->setRowStretch(1, 4);
    m_layout->setRowStretch(2, 4);
    m_layout->setColumnStretch(0, 2);
    m_layout->setColumnStretch(1, 6);
    m_layout->setColumnStretch(2, 2);

    initDisplay();
}

void WidgetSwitcher::setItemStyle(int item, QString style, QString altStyle, int index)
{
    if (item >= LeftPicture && item <= Name && rejectsIndex(SourcePath, "setItemStyle", index, EntryCount))
        return;

    switch (item) {
    case SwitcherItself:
        if (!style.isEmpty() || !altStyle.isEmpty())
            applyStyleSheet(this, style.isEmpty() ? altStyle : style);
        break;
    case LeftPicture:
    case RightPicture:
        m_sideStyles[index] = style;
        break;
    case CentrePicture:
        m_centreStyles[index] = style;
        break;
    case Name:
        m_names[index] = style;
        break;
    case PagesOff:
        m_pageOffStyle = style;
        break;
    case PageOn:
        m_pageOnStyle = style;
        break;
    }
}

void WidgetSwitcher::setFontStyle(int item, int pointSize, bool, QString style)
{
    if (item != Name)
        return;
    m_nameLabel->setFont(defaultFont(pointSize, true));
    applyStyleSheet(m_nameLabel, style);
}

void WidgetSwitcher::setItemGeometry(int item, int x, int y, int w, int h)
{
    switch (item) {
    case SwitcherItself:
        setBgGeometry(x, y, w, h);
        break;
    case LeftPicture:
        placeWidget(m_leftLabel, x, y, w, h);
        break;
    case RightPicture:
        placeWidget(m_rightLabel, x, y, w, h);
        break;
    case CentrePicture:
        placeWidget(m_centreLabel, x, y, w, h);
        break;
    case Name:
        placeWidget(m_nameLabel, x, y, w, h);
        break;
    case PagesOff:
        m_autoPage = false;
        setPageGeometry(x, y, w, h);
        placePageOffLabels();
        break;
    case PageOn:
        m_autoPage = false;
        setPageGeometry(x, y, w, h);
        placePageOnLabel(0);
        break;
    }
}

void WidgetSwitcher::setBgGeometry(int x, int y, int w, int h)
{
    placeWidget(this, x, y, w, h);
    setAutoPageGeometry();
}

void WidgetSwitcher::selectItem(int index)
{
    if (rejectsIndex(SourcePath, "selectItem", index, EntryCount))
        return;
    const int last = EntryCount - 1;
    applyStyleSheet(m_centreLabel, m_centreStyles[index]);
    applyStyleSheet(m_leftLabel, m_sideStyles[index == 0 ? last : index - 1]);
    applyStyleSheet(m_rightLabel, m_sideStyles[index == last ? 0 : index + 1]);
    m_nameLabel->setText(m_names[index]);
    dressPages(index);
    m_currentIndex = index;
}

void WidgetSwitcher::makeSelectable(int index, bool selectable)
{
    if (!rejectsIndex(SourcePath, "makeSelectable", index, EntryCount))
        m_selectable[index] = selectable;
}

void WidgetSwitcher::initDisplay()
{
    m_autoPage = true;
    applyStyleSheet(this, "background-color: rgba(71, 66, 66, 255);");
    move(0, 0);
    setAutoPageGeometry();
}

void WidgetSwitcher::setAutoPageGeometry()
{
    if (!m_autoPage)
        return;
    // The pixmap cache of the toolkit sees to it that the file is not read again.
    const QSize page = QPixmap(QLatin1String(":/resource/images_l2/page_off.png")).size();
    const int pagesWidth = page.width() + (EntryCount - 1) * (page.width() + PageOnGap);
    setPageGeometry(width() / 2 - pagesWidth / 2, 0, page.width(), page.height());
    placePageOffLabels();
    placePageOnLabel(0);
}

void WidgetSwitcher::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (isLeftKey(key))
        turnTo(m_currentIndex - 1);
    else if (isRightKey(key))
        turnTo(m_currentIndex + 1);
    else if (isOKKey(key))
        reportSelection();
    else
        Widget::keyReleaseEvent(event);
}

void WidgetSwitcher::showEvent(QShowEvent *)
{
    selectItem(m_currentIndex);
}

void WidgetSwitcher::setPageGeometry(int x, int y, int w, int h)
{
    m_pageX = x;
    m_pageY = y;
    m_pageW = w;
    m_pageH = h;
}

void WidgetSwitcher::placePageOffLabels()
{
    for (int i = 0; i < EntryCount; ++i)
        placeWidget(m_pageOffLabels[i], qint64(m_pageX) + PageOffStep * i, m_pageY, m_pageW, m_pageH);
}

void WidgetSwitcher::placePageOnLabel(int index)
{
    // Its step follows the size of the dots, that of the unlit ones does not.
    placeWidget(m_pageOnLabel, m_pageX + index * (qint64(m_pageW) + PageOnGap), m_pageY, m_pageW, m_pageH);
}

void WidgetSwitcher::dressPages(int index)
{
    for (int i = 0; i < EntryCount; ++i) {
        applyStyleSheet(m_pageOffLabels[i], m_pageOffStyle);
        // The unlit dots lie above the lit one.
        if (i == index)
            m_pageOffLabels[i]->hide();
        else
            m_pageOffLabels[i]->show();
    }
    placePageOnLabel(index);
    applyStyleSheet(m_pageOnLabel, m_pageOnStyle);
}

void WidgetSwitcher::turnTo(int index)
{
    selectItem((index + EntryCount) % EntryCount);
    playSound(ClickSound);
}

void WidgetSwitcher::reportSelection()
{
    playSound(ClickSound);
    if (m_selectable[m_currentIndex])
        emit sendMainItem(m_currentIndex);
}
