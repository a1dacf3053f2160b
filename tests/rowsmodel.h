#ifndef ROWSMODEL_H
#define ROWSMODEL_H

#include "widgetlistview.h"

#include <QAbstractListModel>
#include <QList>
#include <QStringList>
#include <QVariant>

#include <algorithm>
#include <numeric>
#include <vector>

/// What is in a row of a list.
struct Row
{
    QString title;
    QStringList values;
    QVariant setValue;  // QString
    int valueIndex = 0;
    int badge = -1;
    bool moreDepth = false;
    bool modifiable = true;
    bool deletable = false;
    bool valueOnRightSide = false;
    bool titleDimmed = false;
    bool valueDimmed = false;
};

/// Rows that a test changes as it likes, by moving, inserting, removing and resetting.
class RowsModel : public QAbstractListModel
{
public:
    explicit RowsModel(QList<Row> rows = {}, QObject *parent = nullptr)
        : QAbstractListModel(parent),
          m_rows(std::move(rows))
    {
    }

    /// \a count rows that are called "<prefix> 0" and so on.
    static QList<Row> titled(int count, const QString &prefix = QStringLiteral("row"))
    {
        QList<Row> rows;
        for (int i = 0; i < count; ++i)
            rows.append(titledRow(QStringLiteral("%1 %2").arg(prefix).arg(i)));
        return rows;
    }

    static Row titledRow(const QString &title)
    {
        Row row;
        row.title = title;
        return row;
    }

    static QList<Row> titled(const QStringList &titles)
    {
        QList<Row> rows;
        for (const QString &title : titles)
            rows.append(titledRow(title));
        return rows;
    }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : int(m_rows.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        ++m_asked;
        m_lowestAsked = qMin(m_lowestAsked, index.row());
        m_highestAsked = qMax(m_highestAsked, index.row());
        const Row &row = m_rows.at(index.row());
        switch (role) {
        case WidgetListView::TitleRole:
            return row.title;
        case WidgetListView::ValueRole:
            return row.setValue;
        case WidgetListView::ValuesRole:
            return row.values.isEmpty() ? QVariant() : row.values;
        case WidgetListView::ValueIndexRole:
            return row.valueIndex;
        case WidgetListView::BadgeRole:
            return row.badge == -1 ? QVariant() : row.badge;
        case WidgetListView::MoreDepthRole:
            return row.moreDepth;
        case WidgetListView::ModifiableRole:
            return row.modifiable;
        case WidgetListView::DeletableRole:
            return row.deletable;
        case WidgetListView::ValueOnRightSideRole:
            return row.valueOnRightSide;
        case WidgetListView::TitleDimmedRole:
            return row.titleDimmed;
        case WidgetListView::ValueDimmedRole:
            return row.valueDimmed;
        default:
            return QVariant();
        }
    }

    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        if (m_refuses || role != WidgetListView::ValueIndexRole)
            return false;
        m_rows[index.row()].valueIndex = value.toInt();
        emit dataChanged(index, index);
        return true;
    }

    const Row &at(int row) const { return m_rows.at(row); }

    void change(int row, const Row &to)
    {
        m_rows[row] = to;
        emit dataChanged(index(row), index(row));
    }

    void insert(int at, const QList<Row> &rows)
    {
        beginInsertRows(QModelIndex(), at, at + int(rows.size()) - 1);
        for (int i = 0; i < rows.size(); ++i)
            m_rows.insert(at + i, rows.at(i));
        endInsertRows();
    }

    void remove(int at, int count)
    {
        beginRemoveRows(QModelIndex(), at, at + count - 1);
        m_rows.erase(m_rows.begin() + at, m_rows.begin() + at + count);
        endRemoveRows();
    }

    /// So that the row \a from is row \a to afterwards.
    void move(int from, int to)
    {
        if (beginMoveRows(QModelIndex(), from, from, QModelIndex(), to > from ? to + 1 : to)) {
            m_rows.move(from, to);
            endMoveRows();
        }
    }

    void reset(const QList<Row> &rows)
    {
        beginResetModel();
        m_rows = rows;
        endResetModel();
    }

    /// By title, as a change of layout.
    void sortRows()
    {
        emit layoutAboutToBeChanged();
        const QList<Row> rows = m_rows;
        std::vector<int> order(rows.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return rows.at(a).title < rows.at(b).title; });
        QModelIndexList from, to;
        for (int i = 0; i < rows.size(); ++i) {
            m_rows[i] = rows.at(order[i]);
            from << index(order[i]);
            to << index(i);
        }
        changePersistentIndexList(from, to);
        emit layoutChanged();
    }

    bool m_refuses = false;

    /// How often somebody asked for data, and of which rows.
    mutable int m_asked = 0;
    mutable int m_lowestAsked = 1 << 30;
    mutable int m_highestAsked = -1;

protected:
    QList<Row> m_rows;
};

/// Rows of which the view gets to know some at a time.
class LazyModel : public RowsModel
{
public:
    LazyModel(int rows, int portion)
        : m_all(titled(rows)),
          m_portion(portion)
    {
    }

    bool canFetchMore(const QModelIndex &parent) const override
    {
        return !parent.isValid() && m_rows.size() < m_all.size();
    }

    void fetchMore(const QModelIndex &) override
    {
        ++m_fetches;
        insert(int(m_rows.size()), m_all.mid(m_rows.size(), m_portion));
    }

    int m_fetches = 0;

private:
    QList<Row> m_all;
    int m_portion;
};

#endif
