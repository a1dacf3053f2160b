#ifndef BENCHMARKS_LISTMODEL_H
#define BENCHMARKS_LISTMODEL_H

#include <QAbstractListModel>
#include <QStringList>

#include <vector>

/// The rows of the settings list, for the plain view and for the library's.
class ListModel : public QAbstractListModel
{
public:
    /// The plain view's. It knows nothing of values but the one that it shows.
    enum { ValueRole = Qt::UserRole };

    /// What colour the value of a row has that was never selected: a WidgetList paints it quite black, a WidgetListView
    /// like all others.
    enum class UnseenValue { Black, Dark };

    ListModel(int rows, UnseenValue unseenValue, QObject *parent);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    /// For the plain view.
    void visit(const QModelIndex &index);
    void stepValue(const QModelIndex &index, int direction);

private:
    struct Row
    {
        QString title;
        QStringList values;
        int current;
        bool visited;
    };

    std::vector<Row> m_rows;
};

#endif
