#include "work.h"

#include "content.h"
#include "widgetlist.h"
#include "widgetlistview.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QKeyEvent>

#include <malloc.h>

namespace {

const int ClockHeight = 68;
const int SmallList = 12;
const int HugeList = 100000;

// Steps in a round.
const int ScrollingKeys = 9;
const int Ticks = 10;
const int UnchangedTicks = 1000;
const int SwitcherEntries = 6;

class PaintCounter : public QObject
{
public:
    PaintCounter() { qApp->installEventFilter(this); }

    bool hasSeenPaint()
    {
        const bool seen = m_seen;
        m_seen = false;
        return seen;
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_seen |= event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_seen = false;
};

/// Which class of the library the plain list stands beside.
enum class Of { Widgets, Model };

QWidget *newListOf(Of of, Make make, int rows, QWidget *parent)
{
    return of == Of::Widgets ? newList(make, rows, parent) : newListView(make, rows, parent);
}

class ListStage : public Stage
{
public:
    ListStage(Make make, Of of, int rows, int steps)
        : Stage(steps, true)
    {
        QWidget *list = newListOf(of, make, rows, &m_window);
        show(list);
        seeAllRows(qobject_cast<WidgetList *>(list), rows);
    }

protected:
    static constexpr int RowsInView = 3;

private:
    // The library lays a row out when it is first seen. A view has no such memory.
    void seeAllRows(WidgetList *list, int rows)
    {
        for (int row = RowsInView - 1; list && row < rows; row += RowsInView) {
            list->setFocusAtItem(row);
            paint();
        }
        if (list)
            list->setFocusAtItem(0);
    }
};

class ScrollStage : public ListStage
{
public:
    ScrollStage(Make make, Of of, int rows)
        : ListStage(make, of, rows, ScrollingKeys)
    {
        toLastRowInView();
    }

private:
    void rewind() override
    {
        for (int i = 0; i < m_keys + RowsInView - 1; ++i)
            type(Qt::Key_2);
        toLastRowInView();
    }

    void step(int) override
    {
        type(Qt::Key_8);
        ++m_keys;
    }

    void toLastRowInView()
    {
        for (int i = 0; i < RowsInView - 1; ++i)
            type(Qt::Key_8);
        m_keys = 0;
    }

    int m_keys = 0;
};

class InViewStage : public ListStage
{
public:
    InViewStage(Make make, Of of, int rows)
        : ListStage(make, of, rows, 10)
    {
    }

private:
    void rewind() override {}
    void step(int number) override { type(number % 2 == 0 ? Qt::Key_8 : Qt::Key_2); }
};

class ValueStage : public ListStage
{
public:
    ValueStage(Make make, Of of, int rows)
        : ListStage(make, of, rows, ValueCount)
    {
    }

private:
    void rewind() override {}
    void step(int) override { type(Qt::Key_6); }
};

/// Rows that take no memory, so that it is the list alone that may.
class EndlessModel : public QAbstractListModel
{
public:
    EndlessModel(int rows, QObject *parent)
        : QAbstractListModel(parent),
          m_rows(rows)
    {
        for (int value = 0; value < ValueCount; ++value)
            m_values.append(rowValue(0, value));
    }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override { return parent.isValid() ? 0 : m_rows; }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::DisplayRole)
            return rowTitle(index.row());
        return role == WidgetListView::ValuesRole ? m_values : QVariant();
    }

private:
    const int m_rows;
    QStringList m_values;
};

/// In a list of \a rows, near the last of them.
class FarScrollStage : public Stage
{
public:
    FarScrollStage(Make, int rows)
        : Stage(ScrollingKeys, true),
          m_start(rows - ScrollingKeys - 1)
    {
        m_list = new WidgetListView(&m_window, nullptr);
        m_list->resize(ScreenWidth, ScreenHeight);
        m_list->setModel(new EndlessModel(rows, m_list));
        show(m_list);
    }

private:
    void rewind() override { m_list->setFocusAtItem(m_start); }
    void step(int) override { type(Qt::Key_8); }

    const int m_start;
    WidgetListView *m_list;
};

class FarBuildStage : public Stage
{
public:
    FarBuildStage(Make, int rows)
        : Stage(1, true),
          m_model(rows, nullptr)
    {
        show(&m_window);
    }

private:
    void rewind() override { m_list.reset(); }

    void step(int) override
    {
        m_list = std::make_unique<WidgetListView>(&m_window, nullptr);
        m_list->resize(ScreenWidth, ScreenHeight);
        m_list->setModel(&m_model);
        m_list->show();
    }

    EndlessModel m_model;
    std::unique_ptr<WidgetListView> m_list;
};

class BuildStage : public Stage
{
public:
    BuildStage(Make make, Of of, int rows)
        : Stage(1, true),
          m_make(make),
          m_of(of),
          m_rows(rows)
    {
        show(&m_window);
    }

private:
    void rewind() override { m_list.reset(); }

    void step(int) override
    {
        m_list.reset(newListOf(m_of, m_make, m_rows, &m_window));
        m_list->show();
    }

    const Make m_make;
    const Of m_of;
    const int m_rows;
    std::unique_ptr<QWidget> m_list;
};

/// A clock, with a list above it where \a rows are wanted.
class ClockStage : public Stage
{
public:
    ClockStage(Make make, int rows, int steps, bool paints)
        : Stage(steps, paints),
          m_clock(newClock(make, &m_window))
    {
        if (rows > 0) {
            m_window.resize(ScreenWidth, ScreenHeight + ClockHeight);
            m_clock.widget->move(0, ScreenHeight);
            show(newList(make, rows, &m_window));
        }
        show(m_clock.widget);
        rewind();
    }

protected:
    void rewind() override { showSecond(0); }

    void showSecond(int second)
    {
        m_clock.showTime(10, 12, second);
    }

private:
    Clock m_clock;
};

class TickStage : public ClockStage
{
public:
    TickStage(Make make, int rows)
        : ClockStage(make, rows, Ticks, true)
    {
    }

private:
    void step(int number) override { showSecond(number + 1); }
};

class UnchangedTickStage : public ClockStage
{
public:
    explicit UnchangedTickStage(Make make)
        : ClockStage(make, 0, UnchangedTicks, false)
    {
    }

private:
    void step(int) override { showSecond(0); }
};

class KeypadStage : public Stage
{
public:
    explicit KeypadStage(Make make)
        : Stage(10, true),
          m_make(make)
    {
    }

private:
    void rewind() override
    {
        m_keypad.reset(newKeypad(m_make, &m_window));
        show(m_keypad.get());
    }

    void step(int number) override { type(Qt::Key_2 + number % 8); }

    const Make m_make;
    std::unique_ptr<QWidget> m_keypad;
};

class SwitcherStage : public Stage
{
public:
    explicit SwitcherStage(Make make)
        : Stage(SwitcherEntries, true)
    {
        show(newSwitcher(make, &m_window));
    }

private:
    void rewind() override {}
    void step(int) override { type(Qt::Key_6); }
};

template <typename Kind, typename... Arguments>
std::function<std::unique_ptr<Stage>(Make)> stage(Arguments... arguments)
{
    return [=](Make make) { return std::make_unique<Kind>(make, arguments...); };
}

}

Stage::Stage(int steps, bool paints)
    : steps(steps),
      paints(paints)
{
    m_window.resize(ScreenWidth, ScreenHeight);
}

void Stage::prepare()
{
    QApplication::setActiveWindow(&m_window);
    rewind();
    paint();
}

void Stage::run()
{
    for (int i = 0; i < steps; ++i) {
        step(i);
        if (paints)
            paint();
    }
}

bool Stage::paintsAsItShould()
{
    PaintCounter counter;
    for (int i = 0; i < steps; ++i) {
        step(i);
        paint();
        if (counter.hasSeenPaint() != paints)
            return false;
    }
    return true;
}

void Stage::show(QWidget *screen)
{
    screen->show();
    m_window.show();
    QApplication::setActiveWindow(&m_window);
    // The toolkit paints no window before the event loop has exposed it.
    QCoreApplication::processEvents();
    // The library's list has given the focus to its first row.
    if (!screen->isAncestorOf(QApplication::focusWidget()))
        screen->setFocus();
    paint();
}


void Stage::type(int key)
{
    QWidget *receiver = m_window.focusWidget();
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(receiver, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(receiver, &release);
}

void Stage::paint()
{
    // One turn of the event loop, in which a plain view lays itself out if its model has changed, and then the frame.
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

std::vector<Work> tableWork()
{
    return {
        {"down", "down key, 12 rows, scrolling", stage<ScrollStage>(Of::Widgets, SmallList), 3.5, 0, 1},
        {"in-view", "down or up key, in view", stage<InViewStage>(Of::Widgets, SmallList), 3, 0, 1},
        {"value", "right key (value)", stage<ValueStage>(Of::Widgets, SmallList), 0.5, 0, 1},
        {"build-12", "build 12 rows, first frame", stage<BuildStage>(Of::Widgets, SmallList), 5, 0, 1},
        {"build-200", "build 200 rows, first frame", stage<BuildStage>(Of::Widgets, 200), 12, 0, 0.25},
        {"view-down", "list view: down key, scrolling", stage<ScrollStage>(Of::Model, SmallList), 1.1, 0, 1},
        {"view-in-view", "list view: down key, in view", stage<InViewStage>(Of::Model, SmallList), 1.1, 0, 1},
        {"view-value", "list view: right key (value)", stage<ValueStage>(Of::Model, SmallList), 1.1, 0, 1},
        {"view-build", "list view: build, first frame", stage<BuildStage>(Of::Model, SmallList), 1.1, 0, 1},
        {"tick", "clock, next second", stage<TickStage>(0), 8, 0, 1},
        {"unchanged-tick", "clock, nothing changed", stage<UnchangedTickStage>(), 0, 2, 1},
        {"keypad", "keypad, digit key", stage<KeypadStage>(), 0, 60, 1},
        {"switcher", "switcher, one step", stage<SwitcherStage>(), 0, 150, 1},
    };
}

std::vector<Work> growthWork()
{
    return {
        {"down-200", "down key, 200 rows, scrolling", stage<ScrollStage>(Of::Widgets, 200), 0, 0, 1},
        {"down-2000", "down key, 2000 rows, scrolling", stage<ScrollStage>(Of::Widgets, 2000), 0, 0, 1},
        {"value-200", "right key (value), 200 rows", stage<ValueStage>(Of::Widgets, 200), 0, 0, 1},
        {"value-2000", "right key (value), 2000 rows", stage<ValueStage>(Of::Widgets, 2000), 0, 0, 1},
        {"view-down-12", "list view: down key, row 12", stage<FarScrollStage>(SmallList), 0, 0, 1},
        {"view-down-100000", "list view: down key, row 100000", stage<FarScrollStage>(HugeList), 0, 0, 1},
        {"view-build-12", "list view: 12 rows, first frame", stage<FarBuildStage>(SmallList), 0, 0, 1},
        {"view-build-100000", "list view: 100000 rows, first frame", stage<FarBuildStage>(HugeList), 0, 0, 1},
        {"tick-12", "clock above 12 rows, next second", stage<TickStage>(SmallList), 0, 0, 1},
        {"tick-200", "clock above 200 rows, next second", stage<TickStage>(200), 0, 0, 1},
        {"tick-2000", "clock above 2000 rows, next second", stage<TickStage>(2000), 0, 0, 1},
        {"build-2000", "build 2000 rows, first frame", stage<BuildStage>(Of::Widgets, 2000), 0, 0, 0.1},
    };
}

double heapOfList(Make make, int rows)
{
    QWidget window;
    window.resize(ScreenWidth, ScreenHeight);
    window.show();
    QCoreApplication::processEvents();
    const double before = heapInUse();
    QWidget *list = newList(make, rows, &window);
    list->show();
    QCoreApplication::sendPostedEvents();
    return heapInUse() - before;
}

double heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}
