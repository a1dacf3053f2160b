#include "plainlist.h"

#include "content.h"
#include "listmodel.h"
#include "screens.h"

#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QStyle>
#include <QStyledItemDelegate>

namespace {

const QColor Bar(0x47, 0x42, 0x42);
const QColor Paper(0xf8, 0xf7, 0xf6);
const QColor Highlight(0xf7, 0xce, 0x86);
const QColor Ink(0x1f, 0x16, 0x18);
const QColor PaleInk(0x59, 0x4b, 0x4f);
const QColor ScrollGroove(0xa8, 0xa1, 0xa2);
const QColor ScrollHandle(0x34, 0x32, 0x32);

const int TitleHeight = 38;
const int ScrollBarWidth = 4;
const int ScrollHandleMinimum = 5;

// In a row.
const QRect RowTitleRect(9, 2, 176, 21);
const QRect RowValueRect(9, 23, 206, 21);
const QPoint PrevArrowPlace(185, 18);
const QPoint NextArrowPlace(201, 18);

QFont fontOfSize(int pointSize, bool bold)
{
    QFont font;
    font.setPointSize(pointSize);
    font.setBold(bold);
    return font;
}

class Delegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return QSize(ScreenWidth - ScrollBarWidth, RowHeight);
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const bool selected = option.state & QStyle::State_Selected;
        const QPoint origin = option.rect.topLeft();
        painter->fillRect(option.rect, selected ? Highlight : Paper);
        painter->setFont(m_titleFont);
        painter->setPen(selected ? Ink : PaleInk);
        painter->drawText(RowTitleRect.translated(origin), Qt::AlignLeft | Qt::AlignVCenter, index.data().toString());
        painter->setFont(m_valueFont);
        painter->setPen(index.data(Qt::ForegroundRole).value<QColor>());
        painter->drawText(RowValueRect.translated(origin), Qt::AlignLeft | Qt::AlignTop,
                          index.data(ListModel::ValueRole).toString());
        painter->drawPixmap(origin + PrevArrowPlace, selected ? m_prevFocus : m_prev);
        painter->drawPixmap(origin + NextArrowPlace, selected ? m_nextFocus : m_next);
    }

private:
    const QFont m_titleFont = fontOfSize(12, true);
    const QFont m_valueFont = fontOfSize(14, false);
    const QPixmap m_prev{picturePath("arrow_prev_nor")};
    const QPixmap m_prevFocus{picturePath("arrow_prev_focus")};
    const QPixmap m_next{picturePath("arrow_next_nor")};
    const QPixmap m_nextFocus{picturePath("arrow_next_focus")};
};

class ScrollBar : public QScrollBar
{
public:
    using QScrollBar::QScrollBar;

    QSize sizeHint() const override { return QSize(ScrollBarWidth, ScrollBarWidth); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const int range = maximum() - minimum();
        const int length = qMax(height() * pageStep() / (range + pageStep()), ScrollHandleMinimum);
        const int top = QStyle::sliderPositionFromValue(minimum(), maximum(), value(), height() - length);
        QPainter painter(this);
        painter.fillRect(rect(), ScrollGroove);
        painter.fillRect(0, top, width(), length, ScrollHandle);
    }
};

class View : public QListView
{
public:
    View(ListModel *model, QWidget *parent)
        : QListView(parent),
          m_model(model)
    {
        setFrameShape(QFrame::NoFrame);
        setUniformItemSizes(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBar(new ScrollBar(Qt::Vertical));
        setModel(m_model);
        setItemDelegate(new Delegate(this));
        setCurrentIndex(m_model->index(0));
    }

protected:
    void keyPressEvent(QKeyEvent *event) override { event->accept(); }

    void keyReleaseEvent(QKeyEvent *event) override
    {
        switch (event->key()) {
        case Qt::Key_8:
            moveBy(+1);
            break;
        case Qt::Key_2:
            moveBy(-1);
            break;
        case Qt::Key_6:
            m_model->stepValue(currentIndex(), +1);
            break;
        case Qt::Key_4:
            m_model->stepValue(currentIndex(), -1);
            break;
        default:
            event->ignore();
            break;
        }
    }

    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override
    {
        if (current.isValid())
            m_model->visit(current);
        QListView::currentChanged(current, previous);
    }

private:
    void moveBy(int rows)
    {
        const int count = m_model->rowCount(QModelIndex());
        setCurrentIndex(m_model->index((currentIndex().row() + rows + count) % count));
    }

    ListModel *m_model;
};

}

PlainList::PlainList(ListModel *model, QWidget *parent)
    : QWidget(parent)
{
    resize(ScreenWidth, ScreenHeight);

    QPalette titlePalette;
    titlePalette.setColor(QPalette::Window, Bar);
    titlePalette.setColor(QPalette::WindowText, Qt::white);

    QLabel *icon = new QLabel(this);
    icon->setGeometry(0, 0, TitleHeight, TitleHeight);
    icon->setPalette(titlePalette);
    icon->setAutoFillBackground(true);
    icon->setAlignment(Qt::AlignCenter);
    icon->setPixmap(QPixmap(picturePath("icon_sound")));

    QLabel *title = new QLabel(QStringLiteral("Settings"), this);
    title->setGeometry(TitleHeight, 0, ScreenWidth - TitleHeight, TitleHeight);
    title->setPalette(titlePalette);
    title->setAutoFillBackground(true);
    title->setFont(fontOfSize(14, false));

    View *view = new View(model, this);
    view->setGeometry(0, TitleHeight, ScreenWidth, ScreenHeight - TitleHeight);
    setFocusProxy(view);
}
