#include "widgeticongroup.h"

#include "widgetdetails.h"

#include <QLabel>

namespace {

const char SourcePath[] = "ui/view/widget/widgeticongroup.cpp";

const QRect IconRects[] = {QRect(0, 2, 20, 20), QRect(51, 2, 20, 20), QRect(102, 2, 20, 20)};
const QRect SeperatorRects[] = {QRect(30, 6, 11, 11), QRect(81, 6, 11, 11)};
const int AlignmentStep = 2;

void dress(QLabel *label, const QString &style)
{
    applyStyleSheet(label, style);
    label->show();
}

void moveDown(QLabel *label, int dy)
{
    label->move(label->x(), label->y() + dy);
}

}

WidgetIconGroup::WidgetIconGroup(QWidget *parent, SoundManager *sound)
    : Widget(parent, sound)
{
    setObjectName(QLatin1String("WidgetIconGroups"));

    for (int i = 0; i < IconCount; ++i) {
        m_icons[i] = new QLabel(this);
        m_icons[i]->hide();
    }
    for (int i = 0; i < SeperatorCount; ++i) {
        m_seperators[i] = new QLabel(this);
        m_seperators[i]->hide();
    }
    placeAll();
}

void WidgetIconGroup::setIcon(int index, QString style)
{
    if (!rejectsIndex(SourcePath, "setIcon", index, IconCount))
        dress(m_icons[index], style);
}

void WidgetIconGroup::setSeperator(int index, QString style)
{
    if (!rejectsIndex(SourcePath, "setSeperator", index, SeperatorCount))
        dress(m_seperators[index], style);
}

void WidgetIconGroup::setVerticalAlignment(WidgetIconGroup::VerticalAlignment alignment)
{
    switch (int(alignment)) {
    case Top:
        moveAll(-AlignmentStep);
        break;
    case Bottom:
        moveAll(+AlignmentStep);
        break;
    default:
        placeAll();
        break;
    }
}

void WidgetIconGroup::placeAll()
{
    for (int i = 0; i < IconCount; ++i)
        m_icons[i]->setGeometry(IconRects[i]);
    for (int i = 0; i < SeperatorCount; ++i)
        m_seperators[i]->setGeometry(SeperatorRects[i]);
}

void WidgetIconGroup::moveAll(int dy)
{
    for (int i = 0; i < IconCount; ++i)
        moveDown(m_icons[i], dy);
    for (int i = 0; i < SeperatorCount; ++i)
        moveDown(m_seperators[i], dy);
}
