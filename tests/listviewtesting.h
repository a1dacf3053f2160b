#ifndef LISTVIEWTESTING_H
#define LISTVIEWTESTING_H

#include "eventrecording.h"
#include "recordingplatform.h"
#include "rowsmodel.h"
#include "waiting.h"
#include "widgetlistitem.h"
#include "widgetlistview.h"

#include "platform/soundmanager.h"

#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QPointer>
#include <QScrollBar>
#include <QTest>

/// A screen that notes the keys that are handed on to it among the signals and sounds.
class NotingScreen : public QWidget
{
protected:
    void keyPressEvent(QKeyEvent *event) override { note("press", event); }
    void keyReleaseEvent(QKeyEvent *event) override { note("release", event); }

private:
    static void note(const char *what, QKeyEvent *event)
    {
        RecordingPlatform::addEvent(QStringLiteral("handed on: %1 %2")
                                        .arg(QLatin1String(what), QKeySequence(event->key()).toString()));
    }
};

/// What there was to hear and to see since the last call: sounds, signals and keys handed on, in their order.
inline QStringList takeNotes()
{
    QStringList notes;
    const QStringList events = RecordingPlatform::events();
    for (const QString &event : events) {
        if (!event.startsWith(QLatin1String("log:")))
            notes.append(event);
    }
    RecordingPlatform::reset();
    return notes;
}

/// Notes the signals that both makes of list have.
template <typename List>
void noteListSignals(List *list)
{
    NOTE_SIGNAL(list, &List::doSave, "doSave");
    NOTE_SIGNAL(list, &List::reachedBegin, "reachedBegin");
    NOTE_SIGNAL(list, &List::reachedEnd, "reachedEnd");
    NOTE_SIGNAL(list, &List::upKeyLongPressed, "upKeyLongPressed");
    NOTE_SIGNAL(list, &List::upKeyReleased, "upKeyReleased");
    NOTE_SIGNAL(list, &List::downKeyLongPressed, "downKeyLongPressed");
    NOTE_SIGNAL(list, &List::downKeyReleased, "downKeyReleased");
    NOTE_SIGNAL(list, &List::finished, "finished");
    NOTE_SIGNAL(list, &List::visible, "visible");
}

/// A row of a WidgetList with the same in it.
inline WidgetListItem *newItem(const Row &row, SoundManager *sounds)
{
    WidgetListItem *item = new WidgetListItem(nullptr, sounds);
    item->setGeometry(0, 0, 220, 46);
    item->setValueOnRightSide(row.valueOnRightSide);
    for (const QString &value : row.values)
        item->addValue(value);
    if (row.values.isEmpty() && row.setValue.isValid())
        item->setDisplayValue(0, row.setValue.toString(), false);
    else
        item->setDisplayValueIndex(row.valueIndex);
    item->setMoreDepth(row.moreDepth);
    item->setModifiable(row.modifiable);
    item->setDeletable(row.deletable);
    item->m_noShortcut = row.badge == -1;
    item->setSerialNum(row.badge != -1, row.badge);
    // A title that shares its line is measured in the font of before.
    item->setTitle(row.title, true);
    return item;
}

inline void showInFront(QWidget &window)
{
    window.show();
    window.activateWindow();
    runEventLoop();
    if (!window.isActiveWindow())
        QVERIFY(QTest::qWaitForWindowActive(&window, LongestWait));
    runEventLoop();
    takeNotes();
}

/// Sends a stroke of \a key to the widget that has the focus (to \a otherwise if none has), as the device does.
inline void strike(QWidget *otherwise, int key, int repeats = 0)
{
    const auto receiver = [otherwise] { return QApplication::focusWidget() ? QApplication::focusWidget() : otherwise; };
    pressKey(receiver(), key);
    for (int i = 0; i < repeats; ++i)
        repeatKey(receiver(), key);
    releaseKey(receiver(), key);
}

/// The timers with which \a object, the view of a list or the title of a row, has a title scroll.
inline QList<int> scrollTimers(QObject *object)
{
    QList<int> timers;
    for (const auto &timer : QAbstractEventDispatcher::instance()->registeredTimers(object)) {
        if (timer.interval == 200)
            timers.append(timer.timerId);
    }
    return timers;
}

/// A screen with a WidgetListView over \a model.
struct ViewMenu
{
    explicit ViewMenu(QAbstractItemModel *model, SoundManager *sounds = SoundManager::getInstance())
        : list(new WidgetListView(&screen, sounds))
    {
        screen.resize(220, 176);
        list->setGeometry(0, 0, 220, 176);
        if (model)
            list->setModel(model);
        noteListSignals(list.data());
        QObject::connect(list, &WidgetListView::doEnter,
                         [](int row) { RecordingPlatform::addEvent(QStringLiteral("doEnter %1").arg(row)); });
        QObject::connect(list, &WidgetListView::doChange,
                         [](int row) { RecordingPlatform::addEvent(QStringLiteral("doChange %1").arg(row)); });
    }

    void show() { showInFront(screen); }

    /// Returns the row that has the focus after a stroke of \a key.
    int type(int key, int repeats = 0)
    {
        strike(list, key, repeats);
        return list ? list->selectedRow() : -1;
    }

    QAbstractItemView *view() const { return list->findChild<QAbstractItemView *>(); }

    /// Where \a row is on the screen: the y of its upper edge within the rows' part of the list.
    int top(int row) const
    {
        QAbstractItemModel *model = list->model();
        return view()->visualRect(model->index(row, 0)).top();
    }

    bool isInView(int row) const
    {
        const QRect rect = view()->visualRect(list->model()->index(row, 0));
        return !rect.isEmpty() && rect.top() >= 0 && rect.bottom() < view()->viewport()->height();
    }

    QImage picture()
    {
        runEventLoop();
        return screen.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    NotingScreen screen;
    QPointer<WidgetListView> list;
};

#endif
