#include "rows.h"

#include "device.h"
#include "parts.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetlist.h"
#include "widgetlistitem.h"
#include "widgetlistview.h"
#include "widgetmenutitle.h"

#include <QAbstractItemView>
#include <QHash>
#include <QKeyEvent>

namespace {

const QSize RowSize(Device::Width, 46);
const QRect SaveGuide(172, 11, 40, 16);

/// A row where texts are written from right to left. The library lays out all rows from left to right; this one turns
/// round what it makes: the parts stand on the other side, the arrows point the other way, and the left and the right
/// key change places with them.
class MirroredRow : public WidgetListItem
{
public:
    MirroredRow(QWidget *parent, SoundManager *soundManager);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void turnPlace(QWidget *part);
    void turnArrow(QWidget *part);

    // What has been turned already.
    QHash<QWidget *, QRect> m_places;
    QHash<QWidget *, QString> m_arrows;
};

MirroredRow::MirroredRow(QWidget *parent, SoundManager *soundManager)
    : WidgetListItem(parent, soundManager)
{
    const QList<QWidget *> parts = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *part : parts)
        part->installEventFilter(this);
}

bool MirroredRow::eventFilter(QObject *watched, QEvent *event)
{
    QWidget *part = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        turnPlace(part);
        break;
    case QEvent::Polish:
    case QEvent::StyleChange:
        turnArrow(part);
        break;
    default:
        break;
    }
    return WidgetListItem::eventFilter(watched, event);
}

void MirroredRow::turnPlace(QWidget *part)
{
    const QRect place = part->geometry();
    const QRect turned = m_places.value(part);
    // The row may have moved it up or down.
    if (place.left() == turned.left() && place.right() == turned.right())
        return;
    m_places[part] = placeForWriting(place, width());
    part->setGeometry(m_places[part]);
}

void MirroredRow::turnArrow(QWidget *part)
{
    const QString next = QStringLiteral("arrow_next");
    const QString prev = QStringLiteral("arrow_prev");
    QString sheet = part->styleSheet();
    if (sheet == m_arrows.value(part))
        return;
    if (sheet.contains(next))
        sheet.replace(next, prev);
    else if (sheet.contains(prev))
        sheet.replace(prev, next);
    else
        return;
    m_arrows[part] = sheet;
    part->setStyleSheet(sheet);
}

void MirroredRow::keyReleaseEvent(QKeyEvent *event)
{
    const KeyMode mode = m_useFunctionKeys ? KeyMode::Functions : KeyMode::Digits;
    int key = event->key();
    if (isLeftKey(key))
        key = deviceKey(Qt::Key_Right, mode);
    else if (isRightKey(key))
        key = deviceKey(Qt::Key_Left, mode);
    QKeyEvent turned(event->type(), key, event->modifiers(), keyText(key), event->isAutoRepeat());
    WidgetListItem::keyReleaseEvent(&turned);
    event->setAccepted(turned.isAccepted());
}

WidgetListItem *newRow(WidgetList *list)
{
    SoundManager *sounds = SoundManager::getInstance();
    WidgetListItem *row = writesRightToLeft() ? new MirroredRow(list, sounds) : new WidgetListItem(list, sounds);
    row->resize(RowSize);
    return row;
}

template <typename List>
void dressTitleBar(List *list, const QString &title, const QString &icon)
{
    // The toolkit paints the background of a style sheet on a widget of ours only where this is set.
    const QList<WidgetMenuTitle *> bars = list->template findChildren<WidgetMenuTitle *>();
    for (WidgetMenuTitle *bar : bars)
        bar->setAttribute(Qt::WA_StyledBackground);
    list->setTitle(title, false);
    list->setTitleIcon(QStringLiteral("image: url(:/resource/images_l2/%1);").arg(icon));
    // The title bar mirrors itself.
    if (writesRightToLeft())
        list->template findChild<QAbstractItemView *>()->setLayoutDirection(Qt::RightToLeft);
}

}

void setTitleBar(WidgetList *list, const QString &title, const QString &icon)
{
    dressTitleBar(list, title, icon);
}

void setTitleBar(WidgetListView *list, const QString &title, const QString &icon)
{
    dressTitleBar(list, title, icon);
}

void addSaveGuide(WidgetList *list)
{
    list->addGuide(QStringLiteral("image: url(:/resource/images_l2/guide_save.png);"),
                   placeForWriting(SaveGuide, Device::Width));
}

WidgetListItem *addRow(WidgetList *list, const QString &title, int digit)
{
    WidgetListItem *row = newRow(list);
    row->setTitle(title, true);
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
    row->addValue(fromWritingSide(value));
    row->setTitle(title, true);
    list->addListItem(row);
    return row;
}
