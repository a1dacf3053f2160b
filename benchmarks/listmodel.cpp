#include "listmodel.h"

#include "content.h"
#include "screens.h"

#include "widgetlistview.h"

#include <QColor>

namespace {

const QColor Ink(0x1f, 0x16, 0x18);

}

ListModel::ListModel(int rows, UnseenValue unseenValue, QObject *parent)
    : QAbstractListModel(parent),
      m_rows(std::size_t(rows))
{
    for (int row = 0; row < rows; ++row) {
        m_rows[row] = {rowTitle(row), QStringList(), 0, unseenValue == UnseenValue::Dark};
        for (int value = 0; value < ValueCount; ++value)
            m_rows[row].values.append(rowValue(row, value));
    }
}

int ListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant ListModel::data(const QModelIndex &index, int role) const
{
    const Row &row = m_rows[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return row.title;
    case ValueRole:
        return row.values.at(row.current);
    case Qt::ForegroundRole:
        return row.visited ? Ink : QColor(Qt::black);
    case WidgetListView::ValuesRole:
        return row.values;
    case WidgetListView::ValueIndexRole:
        return row.current;
    default:
        return QVariant();
    }
}

bool ListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != WidgetListView::ValueIndexRole)
        return false;
    m_rows[std::size_t(index.row())].current = value.toInt();
    emit dataChanged(index, index, {role});
    return true;
}

void ListModel::visit(const QModelIndex &index)
{
    m_rows[std::size_t(index.row())].visited = true;
}

void ListModel::stepValue(const QModelIndex &index, int direction)
{
    Row &row = m_rows[std::size_t(index.row())];
    const int count = int(row.values.size());
    row.current = (row.current + direction + count) % count;
    emit dataChanged(index, index, {ValueRole});
}
