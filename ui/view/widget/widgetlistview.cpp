#include "widgetlistview.h"

#include "listkeys.h"
#include "listlook.h"
#include "listtitle.h"
#include "modelrow.h"
#include "platform/logging.h"
#include "rowview.h"
#include "widgetdetails.h"

#include <QKeyEvent>
#include <QPointer>

namespace {

const char SourcePath[] = "ui/view/widget/widgetlistview.cpp";

const int LongPressRepeats = 10;
const int RowsBeforePages = 10;

// What \a text begins with, without case and accents; 0 for an empty text.
uint firstLetter(const QString &text)
{
    if (text.isEmpty())
        return 0;
    if (text.at(0).unicode() < 0x80)
        return text.at(0).toLower().unicode();
    const QString letter = text.left(text.at(0).isHighSurrogate() ? 2 : 1).normalized(QString::NormalizationForm_KD);
    if (letter.size() > 1 && letter.at(0).isHighSurrogate())
        return QChar::toLower(QChar::surrogateToUcs4(letter.at(0), letter.at(1)));
    return letter.at(0).toLower().unicode();
}

}

WidgetListView::WidgetListView(QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager),
      m_stopAtEnds(false),
      m_enterOnOK(false),
      m_scrollOnHold(false),
      m_jumpToLetter(false),
      m_mirrored(false),
      m_title(new ListTitle(this)),
      m_view(new RowView(this)),
      m_noFocusRows(0),
      m_upKey(),
      m_downKey(),
      m_letterKey(0)
{
    m_view->setGeometry(RowsRect);
}

void WidgetListView::setModel(QAbstractItemModel *model)
{
    m_view->setModel(model);
}

QAbstractItemModel *WidgetListView::model() const
{
    return m_view->model();
}

void WidgetListView::setRowHeight(int h)
{
    m_view->setRowHeight(qBound(1, h, RowsRect.height()));
}

void WidgetListView::setTitle(QString text, bool defaultFont)
{
    if (defaultFont)
        setDefaultFont();
    m_title->setTitle(text);
}

void WidgetListView::setDefaultFont()
{
    m_title->setDefaultFont();
}

void WidgetListView::setTitleIcon(QString style)
{
    m_title->addIconStyle(style);
}

void WidgetListView::addGuide(QString style, QRect rect)
{
    m_title->addGuide(style, rect);
}

void WidgetListView::setNoFocusStyle(int rowsPerPage)
{
    m_noFocusRows = qMax(rowsPerPage, 0);
    m_view->setNoFocusStyle();
}

void WidgetListView::hideItem(int row)
{
    if (!rejectsIndex(SourcePath, "hideItem", row, m_view->count()))
        m_view->setRowHidden(row, true);
}

void WidgetListView::showItem(int row)
{
    if (!rejectsIndex(SourcePath, "showItem", row, m_view->count()))
        m_view->setRowHidden(row, false);
}

void WidgetListView::setFocusAtItem(int row)
{
    if (rejectsIndex(SourcePath, "setFocusAtItem", row, m_view->count()))
        return;
    const QPointer<WidgetListView> list(this);
    m_view->setRow(row);
    if (list)
        setFocus(Qt::OtherFocusReason);
}

int WidgetListView::selectedRow() const
{
    return m_view->row();
}

int WidgetListView::findPrevRow(int row)
{
    return rowFrom(row, -1);
}

int WidgetListView::findNextRow(int row)
{
    return rowFrom(row, +1);
}

int WidgetListView::rowFrom(int row, int direction)
{
    const int count = m_view->count();
    if (m_noFocusRows == 0)
        return rowBeside(m_view, row, direction, count);
    HeldKey &key = direction < 0 ? m_upKey : m_downKey;
    HeldKey &otherKey = direction < 0 ? m_downKey : m_upKey;
    return rowOfPageBeside(row, direction, m_noFocusRows, count, &key.pageContinued, &otherKey.pageContinued);
}

void WidgetListView::setKeyLetters(int key, QString letters)
{
    if (key < Qt::Key_0 || key > Qt::Key_9)
        rejectIndex(SourcePath, "setKeyLetters", key);
    else
        m_keyLetters.insert(key, letters);
}

void WidgetListView::setInitialFocus()
{
    m_view->setFirstRow();
    setFocus(Qt::OtherFocusReason);
}

void WidgetListView::setLastFocus()
{
    setFocusAtItem(m_view->row());
}

void WidgetListView::showEvent(QShowEvent *)
{
    HeldKey *keys[] = {&m_upKey, &m_downKey};
    for (int i = 0; i < 2; ++i) {
        keys[i]->longPressed = false;
        keys[i]->repeatCount = 0;
    }
    m_letterKey = 0;
    if (m_view->row() == -1) {
        setInitialFocus();
    } else {
        m_view->takeRows();
        setFocus(Qt::OtherFocusReason);
    }
}

void WidgetListView::hideEvent(QHideEvent *)
{
    m_view->forgetRow();
}

void WidgetListView::focusInEvent(QFocusEvent *)
{
    m_view->updateFocus();
}

void WidgetListView::focusOutEvent(QFocusEvent *)
{
    m_view->updateFocus();
}

void WidgetListView::keyPressEvent(QKeyEvent *event)
{
    // Every other key stays accepted as well, unused: what happens, happens at its release.
    const bool up = isUpKey(event->key());
    if (!up && !isDownKey(event->key()))
        return;
    HeldKey &key = up ? m_upKey : m_downKey;
    if (key.longPressed && event->isAutoRepeat()) {
        if (m_scrollOnHold)
            scrollOn(up ? -1 : +1);
    } else if (holdsLongEnough(event, &key.longPressed, &key.repeatCount, LongPressRepeats)) {
        key.scrollCount = 0;
        if (up)
            emit upKeyLongPressed();
        else
            emit downKeyLongPressed();
    }
}

void WidgetListView::scrollOn(int direction)
{
    const int row = m_view->row();
    if (row == -1)
        return;
    HeldKey &key = direction < 0 ? m_upKey : m_downKey;
    const bool byPages = ++key.scrollCount > RowsBeforePages;
    if (m_noFocusRows > 0)
        m_view->setRow(rowFrom(row, direction));
    else
        m_view->setRow(m_view->rowAwayFrom(row, direction * (byPages ? m_view->rowsInView() : 1)));
}

void WidgetListView::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (key != m_letterKey)
        m_letterKey = 0;
    if (releaseOnRow(event))
        return;
    const QPointer<WidgetListView> list(this);
    if (isUpKey(key)) {
        releaseDirection(event, -1);
    } else if (isDownKey(key)) {
        releaseDirection(event, +1);
    } else if (isOKKey(key)) {
        emit doSave();
        if (list)
            click();
    } else if (key >= Qt::Key_0 && key <= Qt::Key_9) {
        releaseDigit(event);
    } else if (key == Qt::Key_Escape) {
        emit finished();
        if (list)
            click();
    } else {
        event->ignore();
    }
}

bool WidgetListView::isPrevKey(int key)
{
    return m_mirrored ? isRightKey(key) : isLeftKey(key);
}

bool WidgetListView::isNextKey(int key)
{
    return m_mirrored ? isLeftKey(key) : isRightKey(key);
}

bool WidgetListView::releaseOnRow(QKeyEvent *event)
{
    // Whether the key is used up. The list gets all others as well.
    const int key = event->key();
    const QModelIndex index = m_view->seenCurrentIndex();
    if (!index.isValid())
        return false;
    if (isOKKey(key) && m_enterOnOK) {
        click();
        emit doEnter(index.row());
        return true;
    }
    if (!isPrevKey(key) && !isNextKey(key))
        return false;

    const ModelRow row(index);
    if (!row.look.modifiable) {
        click();
        return true;
    }
    if (row.look.hasSeveralValues) {
        stepValue(index, row, isPrevKey(key) ? -1 : +1);
        return true;
    }
    if (isNextKey(key) && row.look.moreDepth) {
        const QPointer<WidgetListView> list(this);
        click();
        emit doEnter(index.row());
        return !list;
    }
    return false;
}

void WidgetListView::stepValue(const QModelIndex &index, const ModelRow &row, int direction)
{
    // The model may sort the row elsewhere, and a slot delete what it likes.
    const QPointer<WidgetListView> list(this);
    const QPersistentModelIndex item(index);
    const int value = valueBeside(row.valueIndex, direction, int(row.values.size()));
    const bool changed = model()->setData(index, value, ValueIndexRole);
    if (list && changed && item.isValid())
        emit doChange(item.row());
    if (list)
        click();
}

void WidgetListView::releaseDirection(QKeyEvent *event, int direction)
{
    if (m_view->count() < 1) {
        event->ignore();
        return;
    }
    const bool up = direction < 0;
    if ((up ? m_upKey : m_downKey).longPressed) {
        event->ignore();
        if (up)
            emit upKeyReleased();
        else
            emit downKeyReleased();
        return;
    }
    const QPointer<WidgetListView> list(this);
    const int row = m_view->row();
    const int target = rowFrom(row, direction);
    if (!m_stopAtEnds || (up ? target < row : target > row))
        m_view->setRow(target);
    else if (up)
        emit reachedBegin();
    else
        emit reachedEnd();
    if (list)
        click();
}

void WidgetListView::releaseDigit(QKeyEvent *event)
{
    const int key = event->key();
    if (m_jumpToLetter && m_useFunctionKeys && !m_keyLetters.value(key).isEmpty()) {
        const int row = rowWithLetter(key, m_letterKey == key);
        if (row == -1) {
            event->ignore();
            return;
        }
        const QPointer<WidgetListView> list(this);
        m_letterKey = key;
        m_view->setRow(row);
        if (list)
            click();
        return;
    }

    const int row = rowWithBadge(key - Qt::Key_0);
    if (row == -1) {
        event->ignore();
        return;
    }
    const QPointer<WidgetListView> list(this);
    if (model()->index(row, 0).data(MoreDepthRole).toBool())
        emit doEnter(row);
    else
        Logging::log(Logging::LogError, "[%s, %s] Not selectable by shortcut", SourcePath, "keyReleaseEvent");
    if (list)
        click();
}

int WidgetListView::rowWithBadge(int digit) const
{
    const QString badge = QString::number(digit);
    int row;
    for (int i = 0; (row = m_view->rowInView(i)) != -1; ++i) {
        if (model()->index(row, 0).data(BadgeRole).toString() == badge)
            return row;
    }
    const int count = m_view->count();
    for (row = 0; row < count; ++row) {
        if (!m_view->isRowHidden(row) && model()->index(row, 0).data(BadgeRole).toString() == badge)
            return row;
    }
    return -1;
}

int WidgetListView::rowWithLetter(int key, bool pressedAgain) const
{
    QList<uint> letters;
    const QString text = m_keyLetters.value(key);
    for (int i = 0; i < text.size(); ++i)
        letters.append(firstLetter(text.mid(i)));
    const int letterCount = int(letters.size());

    // Pressed again, the letter after that of the title counts most and that of the title least.
    const int current = m_view->row();
    const int currentLetter = pressedAgain
        ? int(letters.indexOf(firstLetter(model()->index(current, 0).data(TitleRole).toString())))
        : -1;
    int found = -1;
    int foundDistance = letterCount;
    const int count = m_view->count();
    for (int step = 1; step <= count && foundDistance > 0; ++step) {
        const int row = (current + step) % count;
        const int letter = int(letters.indexOf(firstLetter(model()->index(row, 0).data(TitleRole).toString())));
        if (letter == -1 || m_view->isRowHidden(row))
            continue;
        const int distance = currentLetter == -1 ? 0 : (letter - currentLetter - 1 + letterCount) % letterCount;
        if (distance < foundDistance) {
            found = row;
            foundDistance = distance;
        }
    }
    return found;
}

void WidgetListView::click()
{
    playSound(ClickSound);
}
