#include "widgetlist.h"

#include "platform/logging.h"
#include "listkeys.h"
#include "listlook.h"
#include "rowtable.h"
#include "titlelook.h"
#include "widgetdetails.h"
#include "widgetlistitem.h"
#include "widgetmenutitle.h"

#include <QKeyEvent>

namespace {

const char SourcePath[] = "ui/view/widget/widgetlist.cpp";

}

WidgetList::WidgetList(int rowCount, QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager),
      m_selectedRow(-1),
      m_rowCount(qMax(rowCount, 0)),
      m_itemCount(0),
      m_noFocus(false),
      m_stopAtEnds(false),
      m_noFocusRows(0),
      m_pageUpContinued(false),
      m_pageDownContinued(false),
      m_upLongPressed(false),
      m_upRepeatCount(0),
      m_longPressRepeats(10),
      m_downLongPressed(false),
      m_downRepeatCount(0)
{
    m_menuTitle = new WidgetMenuTitle(this, 0);

    m_table = new RowTable(m_rowCount, this);
    m_table->setFocusPolicy(Qt::NoFocus);
    m_table->setFrameShape(QFrame::NoFrame);
    m_table->setShowGrid(false);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setGeometry(RowsRect);
    m_table->setColumnWidth(0, RowsRect.width());
    m_table->setAlternatingRowColors(true);
    m_table->selectRow(0);
    applyStyleSheet(m_table, tableSheet());
}

void WidgetList::setRowCount(int n)
{
    if (n < 0) {
        rejectIndex(SourcePath, "setRowCount", n);
        return;
    }
    for (int row = m_rowCount - 1; row >= n; --row)
        removeItem(row);
    m_selectedRow = -1;
    m_itemCount = 0;
    m_table->setRowCount(n);
    m_table->setColumnCount(1);
    m_rowCount = n;
}

void WidgetList::setRowHeight(int h)
{
    for (int row = 0; row < m_rowCount; ++row)
        m_table->setRowHeight(row, qMax(h, 0));
    m_table->setRowHeightsChanged();
}

void WidgetList::setTitle(QString text, bool defaultFont)
{
    if (defaultFont)
        setDefaultFont();
    m_menuTitle->setTitle(text);
}

void WidgetList::setDefaultFont()
{
    m_menuTitle->setFontStyle(WidgetMenuTitle::ItemTitle, TitlePointSize, false,
                              QLatin1String("color: rgba(255,255,255,255);"));
}

void WidgetList::setTitleIcon(QString style)
{
    m_menuTitle->setItemStyle(WidgetMenuTitle::ItemIcon, style);
}

void WidgetList::addGuide(QString style, QRect rect)
{
    const QRect place = boundedRect(rect);
    m_menuTitle->setItemGeometry(WidgetMenuTitle::ItemInfo, place.x(), place.y(), place.width(), place.height());
    m_menuTitle->setItemStyle(WidgetMenuTitle::ItemInfo, style);
}

void WidgetList::setNoFocusStyle(int rowsPerPage)
{
    m_noFocusRows = qMax(rowsPerPage, 0);
    applyStyleSheet(m_table, noFocusTableSheet());
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    if (m_noFocusRows != 0)
        m_noFocus = true;
    for (int row = 0; row < m_itemCount; ++row) {
        if (WidgetListItem *item = m_table->listItem(row))
            item->m_marquee = false;
    }
}

void WidgetList::addListItem(WidgetListItem *item, int shortcutKey)
{
    if (!item || m_itemCount >= m_rowCount) {
        rejectIndex(SourcePath, "addListItem", m_itemCount);
        return;
    }
    const int row = m_itemCount;
    item->m_marquee = !m_noFocus;
    item->m_refreshedUnseen = false;
    m_table->setRowHeight(row, item->height());
    if (m_table->listItem(row) != item)
        forgetShortcuts(m_table->listItem(row));
    m_table->setListItem(row, item);
    connect(item, SIGNAL(finished()), this, SIGNAL(finished()), Qt::UniqueConnection);
    ++m_itemCount;
    if (shortcutKey != -1)
        m_shortcuts.insert(shortcutKey, item);
    if (isVisible())
        refreshUnseen(row);
}

void WidgetList::addListItem(WidgetListItem *item)
{
    addListItem(item, -1);
}

void WidgetList::removeAllItems()
{
    for (int row = m_itemCount - 1; row >= 0; --row)
        removeItem(row);
    m_itemCount = 0;
}

void WidgetList::hideItem(int row)
{
    if (rejectsIndex(SourcePath, "hideItem", row, m_rowCount))
        return;
    m_table->hideRow(row);
    if (WidgetListItem *item = m_table->listItem(row)) {
        item->hide();
        // In a list that is hidden itself nobody hears of that.
        m_table->takeFocusFrom(item);
        item->m_refreshedUnseen = false;
    }
}

void WidgetList::showItem(int row)
{
    if (rejectsIndex(SourcePath, "showItem", row, m_rowCount))
        return;
    m_table->showRow(row);
    WidgetListItem *item = m_table->listItem(row);
    if (item && item->m_wasShown) {
        m_table->takeRowSize(row);
        showWithParent(item);
    } else if (isVisible()) {
        refreshUnseen(row);
    }
}

void WidgetList::refreshItems()
{
    for (int row = 0; row < m_itemCount; ++row) {
        if (WidgetListItem *item = m_table->listItem(row))
            item->refresh();
    }
}

void WidgetList::backup()
{
    for (int row = 0; row < m_itemCount; ++row) {
        if (WidgetListItem *item = m_table->listItem(row))
            item->backup();
    }
}

bool WidgetList::isModified()
{
    for (int row = 0; row < m_itemCount; ++row) {
        WidgetListItem *item = m_table->listItem(row);
        if (item && item->isModified())
            return true;
    }
    return false;
}

void WidgetList::setFocusAtItem(int row)
{
    Logging::log(Logging::LogTrace, "[%s, %s] sel = %d", SourcePath, "setFocusAtItem", row);
    if (row < 0 || row >= m_itemCount) {
        Logging::log(Logging::LogError, "[%s, %d] Invalid %d", "setFocusAtItem", 249, row);
        return;
    }
    moveTo(row);
}

int WidgetList::findPrevRow(int row)
{
    if (m_noFocusRows == 0)
        return rowBeside(m_table, row, -1, m_itemCount);
    return rowOfPageBeside(row, -1, m_noFocusRows, m_itemCount, &m_pageUpContinued, &m_pageDownContinued);
}

int WidgetList::findNextRow(int row)
{
    if (m_noFocusRows == 0)
        return rowBeside(m_table, row, +1, m_itemCount);
    return rowOfPageBeside(row, +1, m_noFocusRows, m_itemCount, &m_pageDownContinued, &m_pageUpContinued);
}

void WidgetList::setInitialFocus()
{
    Logging::log(Logging::LogTrace, "[%s,%s]", SourcePath, "setInitialFocus");
    m_selectedRow = 0;
    if (m_rowCount != 0 && m_itemCount != 0)
        focusRow(0);
}

void WidgetList::setLastFocus()
{
    Logging::log(Logging::LogTrace, "[%s,%s]", SourcePath, "setLastFocus");
    if (!rejectsIndex(SourcePath, "setLastFocus", m_selectedRow, m_rowCount))
        focusRow(m_selectedRow);
}

void WidgetList::showEvent(QShowEvent *)
{
    for (int row = 0; row < m_itemCount; ++row)
        refreshUnseen(row);
    if (m_selectedRow == -1)
        setInitialFocus();
    // The toolkit may leave the focus on a row of a hidden list, but the row has just dressed as without it.
    WidgetListItem *item = m_table->listItem(m_selectedRow);
    if (item && item->hasFocus())
        item->dressFocused();
    m_upLongPressed = false;
    m_downLongPressed = false;
    m_upRepeatCount = 0;
    m_downRepeatCount = 0;
}

void WidgetList::hideEvent(QHideEvent *)
{
    Logging::log(Logging::LogTrace, "[%s, %d] m_selectedRow = %d", "hideEvent", 429, m_selectedRow);
    m_selectedRow = -1;
    for (int row = 0; row < m_itemCount; ++row) {
        if (WidgetListItem *item = m_table->listItem(row))
            item->m_refreshedUnseen = false;
    }
}

void WidgetList::refreshUnseen(int row)
{
    // A row that has not been in view yet is not shown with the list, but what it displays counts in backup() and
    // isModified().
    WidgetListItem *item = m_table->listItem(row);
    if (!item || item->m_wasShown || m_table->isRowHidden(row))
        return;
    m_table->takeRowSize(row);
    item->refresh();
    item->m_refreshedUnseen = true;
}

void WidgetList::keyPressEvent(QKeyEvent *event)
{
    // Every other key stays accepted as well, unused: what happens, happens at its release.
    const int key = event->key();
    if (isUpKey(key)) {
        event->accept();
        if (holdsLongEnough(event, &m_upLongPressed, &m_upRepeatCount, m_longPressRepeats)) {
            emit upKeyLongPressed();
            Logging::log(Logging::LogTrace, "[%s, %d] upKeyLongPressed", "keyPressEvent", 276);
        }
    } else if (isDownKey(key)) {
        event->accept();
        if (holdsLongEnough(event, &m_downLongPressed, &m_downRepeatCount, m_longPressRepeats)) {
            emit downKeyLongPressed();
            Logging::log(Logging::LogTrace, "[%s, %d] downKeyLongPressed", "keyPressEvent", 295);
        }
    }
}

void WidgetList::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (isUpKey(key)) {
        handleUpRelease(event);
    } else if (isDownKey(key)) {
        handleDownRelease(event);
    } else if (isOKKey(key)) {
        const QPointer<WidgetList> list(this);
        emit doSave();
        if (list)
            click();
    } else if (key >= Qt::Key_0 && key <= Qt::Key_9) {
        handleDigitRelease(event);
    } else if (key == Qt::Key_Escape) {
        const QPointer<WidgetList> list(this);
        emit finished();
        if (list)
            click();
    } else {
        event->ignore();
    }
}

void WidgetList::handleUpRelease(QKeyEvent *event)
{
    if (m_itemCount < 1) {
        event->ignore();
        return;
    }
    if (m_upLongPressed) {
        event->ignore();
        emit upKeyReleased();
        Logging::log(Logging::LogTrace, "[%s, %d] upKeyLongReleased", "keyReleaseEvent", 318);
        return;
    }
    const QPointer<WidgetList> list(this);
    const int row = findPrevRow(m_selectedRow);
    if (!m_stopAtEnds || row < m_selectedRow)
        moveTo(row);
    else
        emit reachedBegin();
    if (list)
        click();
}

void WidgetList::handleDownRelease(QKeyEvent *event)
{
    if (m_itemCount < 1) {
        event->ignore();
        return;
    }
    if (m_downLongPressed) {
        event->ignore();
        emit downKeyReleased();
        Logging::log(Logging::LogTrace, "[%s, %d] downKeyLongReleased", "keyReleaseEvent", 349);
        return;
    }
    const QPointer<WidgetList> list(this);
    const int row = findNextRow(m_selectedRow);
    if (!m_stopAtEnds || row > m_selectedRow)
        moveTo(row);
    else
        emit reachedEnd();
    if (list)
        click();
}

void WidgetList::handleDigitRelease(QKeyEvent *event)
{
    WidgetListItem *item = m_shortcuts.value(event->key());
    if (!item || item->m_noShortcut) {
        event->ignore();
        return;
    }
    Logging::log(Logging::LogTrace, "[%s, %d] Shortcut pressed", "keyReleaseEvent", 398);
    const QPointer<WidgetList> list(this);
    item->selectByShortcut();
    if (list)
        click();
}

void WidgetList::focusRow(int row)
{
    // A row that comes into view with the focus is dressed for it at once, not first as without it.
    WidgetListItem *item = m_table->listItem(row);
    if (item && item->m_refreshedUnseen && item->isEnabled() && !m_table->isHidden() && isActiveWindow())
        item->dress(true);
    m_table->selectRow(row);
    m_table->reveal(row);

    // Where no row is to be seen that could take the keys, the list does.
    item = m_table->listItem(row);
    if (!item || m_table->isHidden() || (item->isHidden() && !holdsFocus(this)))
        setFocus(Qt::OtherFocusReason);
    if (item && !m_table->isHidden())
        item->setFocus(Qt::OtherFocusReason);
}

void WidgetList::moveTo(int row)
{
    m_selectedRow = row;
    focusRow(row);
}

void WidgetList::click()
{
    playSound(ClickSound);
}

void WidgetList::removeItem(int row)
{
    forgetShortcuts(m_table->listItem(row));
    m_table->removeListItem(row);
}

void WidgetList::forgetShortcuts(WidgetListItem *item)
{
    // The table deletes a row later, but its digit key must be dead at once.
    QMap<int, QPointer<WidgetListItem> >::iterator it = m_shortcuts.begin();
    while (it != m_shortcuts.end()) {
        if (it.value() == item)
            it = m_shortcuts.erase(it);
        else
            ++it;
    }
}
