#ifndef LISTTESTING_H
#define LISTTESTING_H

#include "eventrecording.h"
#include "recordingplatform.h"
#include "waiting.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

#include "platform/soundmanager.h"

#include <QHeaderView>
#include <QPointer>
#include <QTableWidget>
#include <QTest>

inline SoundManager *sound()
{
    return SoundManager::getInstance();
}

inline WidgetListItem *newRow(const QString &title, int values = 2, int height = 46)
{
    WidgetListItem *row = new WidgetListItem(nullptr, sound());
    row->setGeometry(0, 0, 220, height);
    row->setTitle(title, true);
    for (int i = 0; i < values; ++i)
        row->addValue(QString("value %1").arg(i));
    return row;
}

inline QTableWidget *tableOf(const WidgetList &list)
{
    return list.findChild<QTableWidget *>();
}

inline WidgetListItem *itemOf(const WidgetList &list, int row)
{
    return qobject_cast<WidgetListItem *>(tableOf(list)->cellWidget(row, 0));
}

/// A table of the toolkit set up as the list's is, without rows in its cells.
inline QTableWidget *newPlainTable(int rows, const QString &sheet, QWidget *parent)
{
    QTableWidget *table = new QTableWidget(rows, 1, parent);
    table->setFocusPolicy(Qt::NoFocus);
    table->setFrameShape(QFrame::NoFrame);
    table->setShowGrid(false);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->horizontalHeader()->setVisible(false);
    table->verticalHeader()->setVisible(false);
    table->setGeometry(0, 38, 220, 138);
    table->setColumnWidth(0, 220);
    table->setAlternatingRowColors(true);
    table->selectRow(0);
    table->setStyleSheet(sheet);
    return table;
}

inline void addRows(WidgetList &list, int count, int values = 2)
{
    for (int i = 0; i < count; ++i)
        list.addListItem(newRow(QString("row %1").arg(i), values));
}

/// The row whose item has the focus; -1 if none has.
inline int focusedRow(const WidgetList &list)
{
    const QTableWidget *table = tableOf(list);
    for (int row = 0; row < table->rowCount(); ++row) {
        if (QApplication::focusWidget() && table->cellWidget(row, 0) == QApplication::focusWidget())
            return row;
    }
    return -1;
}

inline QList<int> selectedRows(const WidgetList &list)
{
    QList<int> rows;
    const QModelIndexList selected = tableOf(list)->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(index.row());
    return rows;
}

inline bool isInView(const WidgetList &list, int row)
{
    const QTableWidget *table = tableOf(list);
    const QRect rect = table->visualRect(table->model()->index(row, 0));
    return !table->isRowHidden(row) && rect.intersects(table->viewport()->rect());
}

/// A screen with a list of \a rows rows, shown in an active window.
struct Menu
{
    explicit Menu(int rows, int values = 2)
        : list(new WidgetList(rows, &screen, sound()))
    {
        screen.resize(220, 176);
        list->setGeometry(0, 0, 220, 176);
        addRows(*list, rows, values);
    }

    void show()
    {
        screen.show();
        screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&screen, LongestWait));
        runEventLoop();
        RecordingPlatform::reset();
        screen.takeKeys();
    }

    QTableWidget *table() const
    {
        return tableOf(*list);
    }

    WidgetListItem *item(int row) const
    {
        return itemOf(*list, row);
    }

    /// Sends \a key to the widget that has the focus (to the list if none has), as the device does, and returns the row
    /// that has it then.
    int type(int key)
    {
        QWidget *receiver = QApplication::focusWidget() ? QApplication::focusWidget() : list.data();
        pressKey(receiver, key);
        releaseKey(receiver, key);
        return focusedRow(*list);
    }

    KeyRecorder screen;
    QPointer<WidgetList> list;
};

#endif
