#include "widgetbottom.h"

#include "widgetdetails.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

const char SourcePath[] = "ui/view/widget/widgetbottom.cpp";

const int LeftAreaItem = 0;
const int RightAreaItem = 1;
const int FirstPictureItem = 2;

QHBoxLayout *newLayout(QWidget *area)
{
    QHBoxLayout *layout = new QHBoxLayout(area);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

QLabel *newPicture(QWidget *area)
{
    QLabel *picture = new QLabel(area);
    area->layout()->addWidget(picture);
    return picture;
}

}

WidgetBottom::WidgetBottom(QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager)
{
    setFocusPolicy(Qt::NoFocus);

    m_leftArea = new QWidget(this);
    m_leftLayout = newLayout(m_leftArea);
    m_pictureLabel[0] = newPicture(m_leftArea);
    m_pictureLabel[1] = newPicture(m_leftArea);

    m_rightArea = new QWidget(this);
    m_rightLayout = newLayout(m_rightArea);
    m_pictureLabel[2] = newPicture(m_rightArea);
    m_pictureLabel[3] = newPicture(m_rightArea);
}

void WidgetBottom::setItemStyle(int item, QString stateStyle, QString areaStyle, int state)
{
    if (item == LeftAreaItem) {
        applyStyleSheet(m_leftArea, areaStyle);
    } else if (item == RightAreaItem) {
        applyStyleSheet(m_rightArea, areaStyle);
    } else if (item >= FirstPictureItem && item < FirstPictureItem + PictureCount) {
        if (!rejectsIndex(SourcePath, "setItemStyle", state, StateCount))
            m_stateStyle[item - FirstPictureItem][state] = stateStyle;
    }
}

void WidgetBottom::setBgGeometry(int x, int y, int w, int h)
{
    const int half = w / 2;
    placeWidget(m_leftArea, x, y, half, h);
    placeWidget(m_rightArea, half, y, half, h);
}

void WidgetBottom::statusBottomShow(int state0, int state1, int state2, int state3)
{
    const int states[PictureCount] = {state0, state1, state2, state3};
    for (int i = 0; i < PictureCount; ++i) {
        if (rejectsIndex(SourcePath, "statusBottomShow", states[i], StateCount))
            return;
    }
    for (int i = 0; i < PictureCount; ++i)
        applyStyleSheet(m_pictureLabel[i], m_stateStyle[i][states[i]]);
}
