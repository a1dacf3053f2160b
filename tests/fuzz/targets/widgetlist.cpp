#include "rowcalls.h"
#include "target.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

#include <QApplication>
#include <QTableWidget>

#include <memory>
#include <set>

namespace {

const int MostRows = 12;

/// A row that the list has, and how to make the same again.
struct ListRow
{
    QPointer<WidgetListItem> item;
    int height;
    std::vector<std::function<void(WidgetListItem *)>> calls;
};

class WidgetListTarget : public SetterTarget<WidgetList>
{
protected:
    virtual QWidget *create(QWidget *)
    {
        m_rowCount = bytes().flag() ? bytes().below(MostRows) : bytes().index(MostRows);
        if (m_rowCount > 1000)
            m_rowCount = 1000;
        m_rows = std::vector<std::shared_ptr<ListRow>>(size_t(std::max(0, m_rowCount)));
        m_hidden.clear();
        m_next = 0;
        m_forgotten = false;
        m_selectionStays = false;
        const int rowCount = m_rowCount;
        QWidget *list = make([=](QWidget *parent) { return new WidgetList(rowCount, parent, sounds()); });
        m_rowCount = std::max(0, m_rowCount);
        m_filled = bytes().below(MostRows);
        return list;
    }

    virtual void call()
    {
        for (; m_filled > 0 && it(); --m_filled)
            addRow();
        if (!it())
            return;
        const int row = bytes().index(m_rowCount > 0 ? std::min(m_rowCount, 100) : 0);
        switch (bytes().below(30)) {
        case 0:
        case 1:
        case 2: return addRow();
        case 3:
        case 4:
        case 5:
        case 6: return callRow(row);
        case 7: {
            say("delete a row");
            if (WidgetListItem *item = itemOf(row))
                delete item;
            return;
        }
        case 8:
            say("delete a row later");
            if (WidgetListItem *item = itemOf(row))
                item->deleteLater();
            return time().settle();
        case 9: {
            const int count = bytes().flag() ? bytes().below(MostRows) : bytes().index(MostRows);
            if (count > 1000)
                return;
            say("setRowCount");
            it()->setRowCount(count);
            if (count < 0)
                return;
            m_rowCount = count;
            m_next = 0;
            m_rows.resize(size_t(count));
            return forgetHiddenFrom(count);
        }
        case 10: {
            say("removeAllItems");
            it()->removeAllItems();
            // What is in the other rows stays there.
            std::fill_n(m_rows.begin(), m_next, nullptr);
            m_next = 0;
            return;
        }
        case 11:
        case 12: {
            say("hideItem");
            it()->hideItem(row);
            if (row >= 0 && row < m_rowCount)
                m_hidden.insert(row);
            return;
        }
        case 13:
        case 14:
            say("showItem");
            it()->showItem(row);
            m_hidden.erase(row);
            return;
        case 15:
        case 16:
        case 17: say("setFocusAtItem"); return it()->setFocusAtItem(row);
        case 18: {
            say("findPrevRow, findNextRow");
            const int prev = it()->findPrevRow(row);
            const int next = it()->findNextRow(row);
            if (row >= 0 && row < m_rowCount && m_pages == 0) {
                expect(prev >= 0 && prev < m_rowCount, "there is no row before");
                expect(next >= 0 && next < m_rowCount, "there is no row after");
                expect(next == row || m_hidden.count(next) == 0, "the next row is hidden");
            }
            return;
        }
        case 19:
            say("refreshItems, backup, isModified");
            it()->refreshItems();
            it()->backup();
            it()->isModified();
            return;
        case 20: {
            const QString text = bytes().text();
            const bool font = bytes().flag();
            return set("setTitle", [=](WidgetList *list) { list->setTitle(text, font); });
        }
        case 21: {
            const QString style = sheet();
            return set("setTitleIcon", [=](WidgetList *list) { list->setTitleIcon(style); });
        }
        case 22: {
            const QString style = sheet();
            const QRect rect = bytes().rect();
            return set("addGuide", [=](WidgetList *list) { list->addGuide(style, rect); });
        }
        case 23: {
            const int height = bytes().length();
            say("setRowHeight");
            return it()->setRowHeight(height);
        }
        case 24: {
            const int rows = bytes().index(5);
            if (bytes().below(4) > 0)
                return;
            m_pages = rows;
            // What is selected then stays so for good, and has another ground.
            m_selectionStays = m_selectionStays || tableOf(it())->currentRow() != 0;
            return set("setNoFocusStyle", [=](WidgetList *list) { list->setNoFocusStyle(rows); });
        }
        case 25: say("m_stopAtEnds"); it()->m_stopAtEnds = bytes().flag(); return;
        case 26: say("m_useFunctionKeys"); it()->m_useFunctionKeys = bytes().flag(); return;
        case 27: say("addListItem, null"); return it()->addListItem(0);
        case 28: return addAgain(row);
        default: return set("setDefaultFont", [](WidgetList *list) { list->setDefaultFont(); });
        }
    }

    virtual void check()
    {
        if (!widget() || m_forgotten)
            return;
        QTableWidget *table = tableOf(it());
        expect(table->rowCount() == m_rowCount, "there is another number of rows");
        const QModelIndexList selected = table->selectionModel()->selectedRows();
        expect(selected.size() <= 1, "more than one row is selected");
        expect(selected.isEmpty() || selected.first().row() < m_rowCount, "a row is selected that does not exist");
        WidgetListItem *focus = qobject_cast<WidgetListItem *>(QApplication::focusWidget());
        for (int row = 0; row < m_rowCount; ++row) {
            WidgetListItem *item = itemOf(row);
            expect(!item || item != focus || !table->isRowHidden(row), "a hidden row has the focus");
            expect(!item || table->cellWidget(row, 0) == item, "a row has another item");
            expect(item || !table->cellWidget(row, 0), "a row that should be empty is not");
            expect(table->isRowHidden(row) == (m_hidden.count(row) > 0), "a row is hidden that should not be");
        }
    }

    virtual QWidget *fresh(QWidget *parent)
    {
        // An empty list shows its first row as the selected one until it has had others.
        if (!isTame() || m_rowCount > 3 * MostRows || m_next == 0 || m_selectionStays)
            return 0;
        // Items that stay in their rows while the list is filled anew cannot be put there otherwise.
        for (int row = m_next; row < m_rowCount; ++row) {
            if (itemOf(row))
                return 0;
        }
        m_row = bytes().below(MostRows);
        m_height = 25 + bytes().below(60);
        m_value = bytes().below(5);
        m_onOneLine = bytes().flag();
        WidgetList *made = static_cast<WidgetList *>(SetterTarget<WidgetList>::fresh(parent));
        made->setRowCount(m_rowCount);
        for (int row = 0; row < m_next; ++row) {
            WidgetListItem *item = new WidgetListItem(0, sounds());
            made->addListItem(item);
            if (itemOf(row)) {
                for (size_t i = 0; i < m_rows[size_t(row)]->calls.size(); ++i)
                    m_rows[size_t(row)]->calls[i](item);
            } else {
                delete item;
            }
        }
        for (std::set<int>::const_iterator row = m_hidden.begin(); row != m_hidden.end(); ++row)
            made->hideItem(*row);
        return made;
    }

    virtual void align(QWidget *widget)
    {
        WidgetList *list = static_cast<WidgetList *>(widget);
        list->setRowHeight(m_height);
        time().settle();
        foreach (WidgetListItem *item, list->findChildren<WidgetListItem *>())
            layOutAnew(item, m_value, m_onOneLine);
        // A row that is laid out while it has the focus looks as if it had not, until it gets it again.
        if (QApplication::focusWidget())
            QApplication::focusWidget()->clearFocus();
        tableOf(list)->scrollToTop();
        for (int row = 0; row < m_rowCount; ++row)
            list->setFocusAtItem(row);
        list->setFocusAtItem(m_row);
    }

    virtual void forget()
    {
        m_rows.clear();
        m_rowCount = 0;
        m_pages = 0;
        m_forgotten = true;
    }

    virtual int mostObjects() const { return 2000; }

private:
    static QTableWidget *tableOf(WidgetList *list) { return list->findChild<QTableWidget *>(); }

    WidgetListItem *itemOf(int row) const
    {
        if (row < 0 || row >= int(m_rows.size()) || !m_rows[size_t(row)])
            return 0;
        return m_rows[size_t(row)]->item;
    }

    void addRow()
    {
        static const int keys[] = {-1, Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_5, Qt::Key_9, Qt::Key_A};
        const int kind = bytes().below(16), key = keys[bytes().below(7)];
        const std::shared_ptr<ListRow> row(new ListRow);
        row->item = new WidgetListItem(0, sounds());
        row->height = kind < 12 ? 46 : bytes().below(120);
        row->item->resize(220, row->height);
        say("a new row");
        if (kind > 0) {
            const QString title = bytes().word();
            doCall(row, {"setTitle", [=](WidgetListItem *item) { item->setTitle(title, true); }, true});
            for (int i = kind % 4; i > 0; --i) {
                const QString value = bytes().word();
                doCall(row, {"addValue", [=](WidgetListItem *item) { item->addValue(value); }, true});
            }
        }
        hear(row->item);
        say("addListItem");
        if (m_next >= m_rowCount) {
            it()->addListItem(row->item, key);
            delete row->item;
            return;
        }
        if (kind % 2)
            it()->addListItem(row->item, key);
        else
            it()->addListItem(row->item);
        m_rows[size_t(m_next++)] = row;
    }

    /// An item that the list already has goes on to the next free row.
    void addAgain(int from)
    {
        WidgetListItem *item = itemOf(from);
        if (!item || m_next >= m_rowCount || m_next == from)
            return;
        say("addListItem, again");
        const std::shared_ptr<ListRow> row = m_rows[size_t(from)];
        m_rows[size_t(from)] = nullptr;
        it()->addListItem(item);
        m_rows[size_t(m_next++)] = row;
    }

    void callRow(int row)
    {
        const RowCall call = takeRowCall(bytes(), isTame(), sheet());
        if (itemOf(row))
            doCall(m_rows[size_t(row)], call);
    }

    void doCall(const std::shared_ptr<ListRow> row, const RowCall &call)
    {
        say(call.name);
        if (call.isSetting)
            row->calls.push_back(call.call);
        call.call(row->item);
    }

    void forgetHiddenFrom(int row)
    {
        m_hidden.erase(m_hidden.lower_bound(row), m_hidden.end());
    }

    int m_rowCount = 0;
    int m_next = 0;
    int m_filled = 0;
    int m_pages = 0;
    bool m_forgotten = false;
    bool m_selectionStays = false;
    std::vector<std::shared_ptr<ListRow>> m_rows;
    std::set<int> m_hidden;
    int m_row = 0;
    int m_height = 46;
    int m_value = 0;
    bool m_onOneLine = false;
};

FUZZ_TARGET("widgetlist", WidgetListTarget)

}
