// Measures a settings list in CPU time and heap: built, shown, and worked with the keys; beside it a plain list view
// that paints the same picture.

#include "widgetlist.h"
#include "widgetlistitem.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QPainter>
#include <QPixmap>
#include <QStringListModel>
#include <QStyledItemDelegate>

#include <cstdio>
#include <ctime>
#include <malloc.h>

namespace {

const int Rounds = 400;

double microseconds()
{
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return now.tv_sec * 1e6 + now.tv_nsec / 1e3;
}

double kilobytes()
{
    return mallinfo2().uordblks / 1024.0;
}

void paintAll()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void type(QWidget *receiver, int key)
{
    const QString text(key < 0x80 ? QString(QLatin1Char(char(key))) : QString());
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(receiver, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(receiver, &release);
}

// The mean CPU time of a key with all the painting that follows, the keys taken in turn.
double perKey(const QList<int> &keys)
{
    const double start = microseconds();
    for (int i = 0; i < Rounds; ++i) {
        type(QApplication::focusWidget(), keys.at(i % keys.size()));
        paintAll();
    }
    return (microseconds() - start) / Rounds;
}

WidgetList *newList(int rows, QWidget *parent)
{
    WidgetList *list = new WidgetList(rows, parent, nullptr);
    list->resize(220, 176);
    list->setTitle(QStringLiteral("Settings"), true);
    for (int i = 0; i < rows; ++i) {
        WidgetListItem *item = new WidgetListItem(list, nullptr);
        item->resize(220, 46);
        item->setTitle(QStringLiteral("Row number %1").arg(i), true);
        item->addValue(QStringLiteral("First value of %1").arg(i));
        item->addValue(QStringLiteral("Second value"));
        list->addListItem(item);
    }
    return list;
}

void measureList(int rows, QWidget *parent)
{
    const double heapBefore = kilobytes();
    const double start = microseconds();
    WidgetList *list = newList(rows, parent);
    const double built = microseconds();
    list->show();
    paintAll();
    const double shown = microseconds();
    const double heap = kilobytes() - heapBefore;

    std::printf("%5d rows   build %7.0f us   show %6.0f us   heap %5.1f kB a row\n", rows, built - start, shown - built,
                heap / rows);
    const double around = perKey({Qt::Key_8});
    const double within = perKey({Qt::Key_8, Qt::Key_2});
    const double value = perKey({Qt::Key_6});
    std::printf("             down %6.0f us   down and up in view %4.0f us   right %4.0f us\n", around, within, value);
    delete list;
}

class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override { return QSize(200, 46); }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const bool selected = option.state & QStyle::State_Selected;
        painter->fillRect(option.rect, selected ? QColor(0xf7, 0xce, 0x86) : QColor(0xf8, 0xf7, 0xf6));
        QFont font;
        font.setPointSize(12);
        font.setBold(true);
        painter->setFont(font);
        painter->setPen(selected ? QColor(0x1f, 0x16, 0x18) : QColor(0x59, 0x4b, 0x4f));
        painter->drawText(option.rect.adjusted(9, 2, -36, -23), Qt::AlignLeft | Qt::AlignVCenter,
                          index.data().toString());
        font.setPointSize(14);
        font.setBold(false);
        painter->setFont(font);
        painter->setPen(QColor(0x1f, 0x16, 0x18));
        painter->drawText(option.rect.adjusted(9, 23, -36, 0), Qt::AlignLeft | Qt::AlignTop,
                          QStringLiteral("First value of %1").arg(index.row()));
        const int top = option.rect.top() + 18;
        painter->drawPixmap(185, top, selected ? m_prevFocus : m_prev);
        painter->drawPixmap(201, top, selected ? m_nextFocus : m_next);
    }

private:
    static QPixmap arrow(const char *name)
    {
        return QPixmap(QStringLiteral(":/resource/images_l2/arrow_%1.png").arg(QLatin1String(name)));
    }

    QPixmap m_prev = arrow("prev_nor");
    QPixmap m_prevFocus = arrow("prev_focus");
    QPixmap m_next = arrow("next_nor");
    QPixmap m_nextFocus = arrow("next_focus");
};

void measurePlainView(QWidget *parent)
{
    QStringList rows;
    for (int i = 0; i < 12; ++i)
        rows.append(QStringLiteral("Row number %1").arg(i));
    QStringListModel model(rows);
    QListView view(parent);
    RowDelegate delegate;
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    view.setUniformItemSizes(true);
    view.setFrameShape(QFrame::NoFrame);
    view.setGeometry(0, 38, 220, 138);
    view.setCurrentIndex(model.index(0));
    view.show();
    view.setFocus();
    paintAll();
    std::printf("plain view   down and up in view %4.0f us\n", perKey({Qt::Key_Down, Qt::Key_Up}));
}

}

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");
    QApplication application(argc, argv);
    QWidget window;
    window.resize(220, 176);
    window.show();
    QApplication::setActiveWindow(&window);
    paintAll();

    delete newList(12, &window);  // fonts and the like are loaded once
    for (int rows : {12, 100, 1000})
        measureList(rows, &window);
    measurePlainView(&window);
    return 0;
}
