#include "formlists.h"

#include "formlook.h"

#include "platform/soundmanager.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QStringListModel>
#include <QTableView>

namespace {

const int RowWidth = 220;
const int RowHeight = 46;

QString titleIcon(const QString &sheet, int changes)
{
    return FormLook::added(sheet.isEmpty() ? QString::fromLatin1("image: none;") : sheet, changes);
}

}

FormList::FormList(QWidget *parent)
    : WidgetList(0, parent, SoundManager::getInstance()),
      m_changes(0),
      m_itemHeight(RowHeight)
{
    FormLook::paintBackground(this);
}

void FormList::setTitle(const QString &title)
{
    m_title = title;
    WidgetList::setTitle(title, true);
}

void FormList::setTitleIconSheet(const QString &sheet)
{
    m_titleIconSheet = sheet;
    setTitleIcon(titleIcon(sheet, ++m_changes));
}

void FormList::setItemHeight(int height)
{
    m_itemHeight = height;
    setRows(m_rows);
}

void FormList::setUseFunctionKeys(bool use)
{
    m_useFunctionKeys = use;
    for (int row = 0; row < m_items.size(); ++row) {
        if (m_items.at(row))
            m_items.at(row)->m_useFunctionKeys = use;
    }
}

void FormList::setRows(const QStringList &rows)
{
    m_rows = rows;
    m_items.clear();
    removeAllItems();
    setRowCount(rows.size());
    for (int row = 0; row < rows.size(); ++row) {
        m_items += newItem(rows.at(row));
        addListItem(m_items.last());
    }
    if (isVisible() && FormLook::designing)
        showFirstRowSelected();
    else if (isVisible() && !rows.isEmpty())
        setFocusAtItem(0);
}

WidgetListItem *FormList::item(int row) const
{
    return row >= 0 && row < m_items.size() ? m_items.at(row) : 0;
}

void FormList::showEvent(QShowEvent *event)
{
    if (FormLook::designing)
        showFirstRowSelected();
    else
        WidgetList::showEvent(event);
}

/// As if it had the focus, but without taking it from whatever the designer is working with.
void FormList::showFirstRowSelected()
{
    refreshItems();
    if (WidgetListItem *first = item(0)) {
        findChild<QTableView *>()->selectRow(0);
        QFocusEvent focus(QEvent::FocusIn);
        QCoreApplication::sendEvent(first, &focus);
    }
}

WidgetListItem *FormList::newItem(const QString &row)
{
    WidgetListItem *item = new WidgetListItem(this, m_soundManager);
    item->m_useFunctionKeys = m_useFunctionKeys;
    item->resize(RowWidth, m_itemHeight);
    QString title = row.trimmed();
    if (title.endsWith(QLatin1Char('>'))) {
        title.chop(1);
        item->setMoreDepth(true);
    }
    const int colon = title.indexOf(QLatin1String(": "));
    item->setTitle(title.left(colon).trimmed(), true);
    if (colon >= 0) {
        const QStringList values = title.mid(colon + 2).split(QLatin1Char(','));
        for (int i = 0; i < values.size(); ++i)
            item->addValue(values.at(i).trimmed());
    }
    return item;
}

FormListItem::FormListItem(QWidget *parent)
    : WidgetListItem(parent, SoundManager::getInstance()),
      m_valueIndex(0),
      m_badge(-1),
      m_moreDepth(false),
      m_valueOnRightSide(false),
      m_modifiable(true)
{
    FormLook::paintBackground(this);
}

void FormListItem::setTitle(const QString &title)
{
    m_title = title;
    WidgetListItem::setTitle(title, true);
    layOut();
}

void FormListItem::setValues(const QStringList &values)
{
    m_values = values;
    removeAllValue();
    for (int i = 0; i < values.size(); ++i)
        addValue(values.at(i));
    if (!values.isEmpty())
        setDisplayValueIndex(m_valueIndex);
    WidgetListItem::setTitle(m_title, true);
    layOut();
}

void FormListItem::setValueIndex(int index)
{
    m_valueIndex = index;
    if (!m_values.isEmpty())
        setDisplayValueIndex(index);
}

void FormListItem::setBadge(int number)
{
    m_badge = number;
    m_noShortcut = number < 0;
    setSerialNum(number >= 0, number);
    layOut();
}

void FormListItem::setMoreDepth(bool moreDepth)
{
    m_moreDepth = moreDepth;
    WidgetListItem::setMoreDepth(moreDepth);
    layOut();
}

void FormListItem::setValueOnRightSide(bool valueOnRightSide)
{
    m_valueOnRightSide = valueOnRightSide;
    WidgetListItem::setValueOnRightSide(valueOnRightSide);
    WidgetListItem::setTitle(m_title, true);
    layOut();
}

void FormListItem::setModifiable(bool modifiable)
{
    m_modifiable = modifiable;
    WidgetListItem::setModifiable(modifiable);
}

void FormListItem::resizeEvent(QResizeEvent *event)
{
    WidgetListItem::resizeEvent(event);
    layOut();
}

void FormListItem::layOut()
{
    if (isVisible())
        refresh();
}

FormListView::FormListView(QWidget *parent)
    : WidgetListView(parent, SoundManager::getInstance()),
      m_changes(0),
      m_rowHeight(RowHeight),
      m_titles(new QStringListModel(this))
{
    FormLook::paintBackground(this);
    setModel(m_titles);
}

void FormListView::setTitle(const QString &title)
{
    m_title = title;
    WidgetListView::setTitle(title, true);
}

void FormListView::setTitleIconSheet(const QString &sheet)
{
    m_titleIconSheet = sheet;
    setTitleIcon(titleIcon(sheet, ++m_changes));
}

void FormListView::setRowHeight(int height)
{
    m_rowHeight = height;
    WidgetListView::setRowHeight(height);
}

void FormListView::setMirrored(bool mirrored)
{
    m_mirrored = mirrored;
    update();
}

QStringList FormListView::titles() const
{
    return m_titles->stringList();
}

void FormListView::setTitles(const QStringList &titles)
{
    m_titles->setStringList(titles);
    setModel(m_titles);
}

void FormListView::showEvent(QShowEvent *event)
{
    if (!FormLook::designing)
        WidgetListView::showEvent(event);
}
