#include "rows.h"

#include "texts.h"

#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "widgetlist.h"
#include "widgetlistitem.h"
#include "widgetmenutitle.h"

namespace {

const QSize RowSize(220, 46);
const QRect SaveGuide(172, 11, 40, 16);
const QRect SaveGuideRightToLeft(8, 11, 40, 16);

WidgetListItem *newRow(WidgetList *list)
{
    WidgetListItem *row = new WidgetListItem(list, SoundManager::getInstance());
    row->resize(RowSize);
    return row;
}

}

void setTitleBar(WidgetList *list, const QString &title, const QString &icon)
{
    // The toolkit paints the background of a style sheet on a widget of ours only where this is set.
    const QList<WidgetMenuTitle *> bars = list->findChildren<WidgetMenuTitle *>();
    for (WidgetMenuTitle *bar : bars)
        bar->setAttribute(Qt::WA_StyledBackground);
    list->setTitle(title, false);
    list->setTitleIcon(QStringLiteral("image: url(:/resource/images_l2/%1);").arg(icon));
}

void addSaveGuide(WidgetList *list)
{
    list->addGuide(QStringLiteral("image: url(:/resource/images_l2/guide_save.png);"),
                   StringRC::getInstance()->m_rightToLeft ? SaveGuideRightToLeft : SaveGuide);
}

WidgetListItem *addRow(WidgetList *list, const QString &title, int digit)
{
    WidgetListItem *row = newRow(list);
    row->setTitle(rowTitle(title), true);
    if (digit >= 0) {
        row->m_noShortcut = false;
        row->setSerialNum(true, digit);
    }
    list->addListItem(row, digit >= 0 ? Qt::Key_0 + digit : -1);
    return row;
}

WidgetListItem *addOneLineRow(WidgetList *list, const QString &title, const QString &value)
{
    WidgetListItem *row = newRow(list);
    // The title comes last: its default font, by which the line is divided, depends on what the row shows.
    row->setValueOnRightSide(true);
    row->addValue(value);
    row->setTitle(title, true);
    list->addListItem(row);
    return row;
}
