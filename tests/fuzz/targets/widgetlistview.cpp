#include "target.h"
#include "widgetlistview.h"

#include "../../rowsmodel.h"

#include <QAbstractItemView>
#include <QStringListModel>

namespace {

/// A model that is asked for something may do what a slot may do, and one that refuses gets no more rows.
template <typename Model>
class Meddling : public Model
{
public:
    template <typename... Arguments>
    explicit Meddling(std::function<void()> meddle, Arguments... arguments) : Model(arguments...), m_meddle(meddle) { }

    virtual bool setData(const QModelIndex &index, const QVariant &value, int role)
    {
        const bool set = Model::setData(index, value, role);
        meddle();
        return set;
    }

    virtual void fetchMore(const QModelIndex &parent)
    {
        if (!this->m_refuses)
            Model::fetchMore(parent);
        meddle();
    }

private:
    void meddle()
    {
        // It may delete the model.
        const std::function<void()> meddle = m_meddle;
        meddle();
    }

    std::function<void()> m_meddle;
};

class WidgetListViewTarget : public SetterTarget<WidgetListView>
{
public:
    virtual ~WidgetListViewTarget() { delete m_model; }

protected:
    virtual QWidget *create(QWidget *)
    {
        m_hidden.clear();
        m_pages = 0;
        QWidget *list = make([this](QWidget *parent) { return new WidgetListView(parent, sounds()); });
        if (bytes().below(8) > 0)
            setModel(newModel(), list);
        return list;
    }

    virtual void call()
    {
        WidgetListView *list = it();
        const int count = m_model ? m_model->rowCount() : 0;
        const int row = bytes().index(count > 100 ? 100 : count);
        switch (bytes().below(32)) {
        case 0: {
            QAbstractItemModel *old = m_model;
            const bool before = bytes().flag();
            QAbstractItemModel *model = newModel();
            say("setModel");
            if (before)
                delete old;
            setModel(model, list);
            if (!before)
                delete old;
            return;
        }
        case 1: say("setModel, null"); delete m_model; return setModel(0, list);
        case 2: say("delete the model"); delete m_model; m_hidden.clear(); return;
        case 3:
        case 4: {
            const int at = bytes().below(8), rows = bytes().below(6) + 1;
            QList<Row> added;
            for (int i = 0; i < rows; ++i)
                added << takeRow();
            say("insert");
            if (m_model)
                rowsModel()->insert(std::min(at, count), added);
            return;
        }
        case 5:
        case 6: {
            const int at = bytes().below(12), rows = bytes().below(6) + 1;
            say("remove");
            if (m_model && at < count)
                rowsModel()->remove(at, std::min(rows, count - at));
            return;
        }
        case 7: {
            const int from = bytes().below(12), to = bytes().below(12);
            say("move");
            if (m_model && from < count && to < count && from != to)
                rowsModel()->move(from, to);
            return;
        }
        case 8: {
            QList<Row> rows;
            for (int i = bytes().below(10); i > 0; --i)
                rows << takeRow();
            say("reset");
            m_hidden.clear();
            if (m_model)
                rowsModel()->reset(rows);
            return;
        }
        case 9:
        case 10: {
            const Row changed = takeRow();
            say("change");
            if (m_model && row >= 0 && row < count)
                rowsModel()->change(row, changed);
            return;
        }
        case 11: say("sort"); return m_model ? rowsModel()->sortRows() : void();
        case 12: say("refuse"); return m_model ? void(rowsModel()->m_refuses = bytes().flag()) : void();
        case 13:
        case 14:
            say("hideItem");
            list->hideItem(row);
            if (m_model && row >= 0 && row < count)
                m_hidden << m_model->index(row, 0);
            return;
        case 15:
            say("showItem");
            list->showItem(row);
            if (m_model && row >= 0 && row < count)
                m_hidden.removeAll(m_model->index(row, 0));
            return;
        case 16:
        case 17: say("setFocusAtItem"); return list->setFocusAtItem(row);
        case 18: {
            say("findPrevRow, findNextRow");
            const int prev = list->findPrevRow(row);
            const int next = list->findNextRow(row);
            if (row >= 0 && row < count && m_pages == 0) {
                expect(prev >= 0 && prev < count, "there is no row before");
                expect(next >= 0 && next < count, "there is no row after");
            }
            return;
        }
        case 19: {
            const QString text = bytes().text();
            const bool font = bytes().flag();
            return set("setTitle", [=](WidgetListView *view) { view->setTitle(text, font); });
        }
        case 20: {
            const QString style = sheet();
            return set("setTitleIcon", [=](WidgetListView *view) { view->setTitleIcon(style); });
        }
        case 21: {
            const QString style = sheet();
            const QRect rect = bytes().rect();
            return set("addGuide", [=](WidgetListView *view) { view->addGuide(style, rect); });
        }
        case 22:
        case 23: {
            const int height = bytes().length();
            return set("setRowHeight", [=](WidgetListView *view) { view->setRowHeight(height); });
        }
        case 24: {
            const int rows = bytes().index(5);
            if (bytes().below(4) > 0)
                return;
            m_pages = rows;
            return set("setNoFocusStyle", [=](WidgetListView *view) { view->setNoFocusStyle(rows); });
        }
        case 25: {
            const bool on = bytes().flag();
            return set("m_mirrored", [=](WidgetListView *view) { view->m_mirrored = on; });
        }
        case 26:
            list->m_stopAtEnds = bytes().flag();
            list->m_enterOnOK = bytes().flag();
            list->m_scrollOnHold = bytes().flag();
            return say("m_stopAtEnds, m_enterOnOK, m_scrollOnHold");
        case 27:
            list->m_useFunctionKeys = bytes().flag();
            list->m_jumpToLetter = bytes().flag();
            return say("m_useFunctionKeys, m_jumpToLetter");
        case 28: {
            const int key = bytes().flag() ? Qt::Key_0 + bytes().below(10) : bytes().number();
            const QString letters = bytes().text();
            say("setKeyLetters");
            return list->setKeyLetters(key, letters);
        }
        case 29: return set("setDefaultFont", [](WidgetListView *view) { view->setDefaultFont(); });
        case 30: {
            const int rows = bytes().below(120), portion = bytes().below(20) + 1;
            QAbstractItemModel *old = m_model;
            say("setModel, fetching");
            setModel(new Meddling<LazyModel>([this] { meddle(); }, rows, portion), list);
            delete old;
            m_fetches = true;
            return;
        }
        default: {
            const int rows = bytes().below(30), key = this->key();
            say("walk");
            for (int i = 0; i < rows; ++i)
                strike(key);
        }
        }
    }

    virtual void check()
    {
        if (!widget())
            return;
        expect(it()->model() == m_model.data(), "the list has another model");
        const int row = it()->selectedRow();
        const int count = m_model ? m_model->rowCount() : 0;
        expect(row >= -1 && row < count, "a row is selected that does not exist");
    }

    virtual QWidget *fresh(QWidget *parent)
    {
        m_row = bytes().below(20);
        m_above = bytes().below(20);
        WidgetListView *made = static_cast<WidgetListView *>(SetterTarget<WidgetListView>::fresh(parent));
        // How many rows were fetched shows where the list has been.
        if (!made || m_fetches) {
            delete made;
            return 0;
        }
        made->setModel(m_model);
        foreach (const QPersistentModelIndex &index, m_hidden) {
            if (index.isValid())
                made->hideItem(index.row());
        }
        return made;
    }

    virtual void align(QWidget *widget)
    {
        WidgetListView *list = static_cast<WidgetListView *>(widget);
        time().settle();
        const int count = m_model ? m_model->rowCount() : 0;
        if (count == 0)
            return;
        // There and back: the rows stand where they do for that. One that is hidden moves none of them.
        QList<int> seen;
        for (int row = 0; row < count; ++row) {
            if (!m_hidden.contains(m_model->index(row, 0)))
                seen << row;
        }
        if (!seen.isEmpty()) {
            list->setFocusAtItem(seen.last());
            time().settle();
            list->setFocusAtItem(seen.at(std::min(m_above, int(seen.size()) - 1)));
        }
        list->setFocusAtItem(std::min(m_row, count - 1));
        // Both, so that the focus is as good as the same.
        list->setFocus();
    }

    virtual void forget()
    {
        // What the next list gets is new.
        delete m_model;
    }

private:
    RowsModel *rowsModel() const { return static_cast<RowsModel *>(m_model.data()); }

    void setModel(QAbstractItemModel *model, QWidget *list)
    {
        m_hidden.clear();
        m_fetches = false;
        m_model = model;
        static_cast<WidgetListView *>(list)->setModel(model);
    }

    QAbstractItemModel *newModel()
    {
        QList<Row> rows;
        for (int i = bytes().below(24); i > 0; --i)
            rows << takeRow();
        return new Meddling<RowsModel>([this] { meddle(); }, rows);
    }

    Row takeRow()
    {
        Row row;
        const int kind = bytes().below(32);
        row.title = kind < 24 ? QString::fromLatin1("row %1").arg(bytes().below(256)) : bytes().text();
        for (int i = kind % 4; i > 0; --i)
            row.values << (kind < 24 ? QString::fromLatin1("value %1").arg(i) : bytes().text());
        if (kind % 8 == 4)
            row.setValue = bytes().text();
        row.moreDepth = kind % 5 == 0;
        row.badge = kind % 3 == 0 ? bytes().index(10) : -1;
        if (kind >= 16) {
            row.valueIndex = bytes().index(4);
            row.modifiable = bytes().flag();
            row.deletable = bytes().flag();
            row.valueOnRightSide = bytes().flag();
            row.titleDimmed = bytes().flag();
            row.valueDimmed = bytes().flag();
        }
        return row;
    }

    QPointer<QAbstractItemModel> m_model;
    QList<QPersistentModelIndex> m_hidden;
    bool m_fetches = false;
    int m_pages = 0;
    int m_row = 0;
    int m_above = 0;
};

FUZZ_TARGET("widgetlistview", WidgetListViewTarget)

}
