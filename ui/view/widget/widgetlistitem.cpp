#include "widgetlistitem.h"

#include "platform/logging.h"
#include "listkeys.h"
#include "listlook.h"
#include "rowtable.h"
#include "widgetdetails.h"
#include "widgetmarqueelable.h"

#include <QKeyEvent>
#include <QPointer>
#include <QStackedWidget>

namespace {

const char SourcePath[] = "ui/view/widget/widgetlistitem.cpp";

void warnOfMix(const char *function, int line)
{
    Logging::log(Logging::LogError, "[%s, %d] Don't mix up!!!!!!!!", function, line);
}

void placeOnLine(QWidget *widget, int top)
{
    widget->setGeometry(widget->x(), top, widget->width(), LineHeight);
}

// A child of a row. The style engine keeps what it makes of each widget that it dresses, and the toolkit has it dress every
// new widget at the next turn of the event loop; a part refuses and waits until it is seen. Until then a change of style
// around it, as when the row moves into a list, does not concern it either.
template <typename Base>
class RowPart : public Base
{
public:
    explicit RowPart(QWidget *row)
        : Base(row)
    {
    }

protected:
    virtual bool event(QEvent *event)
    {
        const QEvent::Type type = event->type();
        if (type == QEvent::PolishRequest)
            return true;
        if (type == QEvent::StyleChange && !this->testAttribute(Qt::WA_WState_Polished))
            return true;
        return Base::event(event);
    }
};

}

WidgetListItem::WidgetListItem(QWidget *parent, SoundManager *soundManager)
    : Widget(parent, soundManager),
      m_showSerialNum(false),
      m_moreDepth(false),
      m_valueOnRightSide(false),
      m_displayIndex(0),
      m_modifiable(true),
      m_selectableFrom(-1),
      m_selectableTo(-1),
      m_titleType(TitleNone),
      m_valueType(ValueNone),
      m_backupIndex(0),
      m_ignoreModified(false),
      m_enterOnOK(false),
      m_noShortcut(true),
      m_deletable(false),
      m_clearAfterRefresh(false),
      m_marquee(true),
      m_fittedTitle(new FittedText),
      m_fittedValue(new FittedText),
      m_marqueeTimer(0),
      m_refreshedUnseen(false),
      m_table(0),
      m_row(-1),
      m_wasShown(false)
{
    // When something is shown, the style engine dresses all of its descendants, hidden or not, that are not below one that
    // is dressed already. With the row done now, and hidden from the start what many rows never show, each part is dressed
    // when it is seen.
    ensurePolished();

    m_titleLabel = new RowPart<WidgetMarqueeLable>(this);
    m_titleLabel->setTextFormat(Qt::PlainText);
    m_titleLabel->setFont(defaultFont(12, true));
    m_titleLabel->setAlignment(TitleAlignment);
    m_titleStack = new RowPart<QStackedWidget>(this);
    m_serialNumLabel = new RowPart<QLabel>(this);
    m_serialNumLabel->setFont(RowLook::badgeFont());
    m_valueLabel = new RowPart<QLabel>(this);
    m_valueLabel->setTextFormat(Qt::PlainText);
    m_valueLabel->setFont(RowLook::valueFont());
    m_valueStack = new RowPart<QStackedWidget>(this);
    m_prevArrow = new RowPart<QLabel>(this);
    m_nextArrow = new RowPart<QLabel>(this);

    m_titleFont = m_titleLabel->font();
    m_valueFont = m_valueLabel->font();
    m_titleLabel->installEventFilter(this);
    m_valueStack->hide();
    m_prevArrow->hide();
    m_nextArrow->hide();
}

WidgetListItem::~WidgetListItem()
{
    if (m_table)
        m_table->forget(this);
    delete m_fittedTitle;
    delete m_fittedValue;
}

void WidgetListItem::setTitle(QString title, bool defaultFont)
{
    if (defaultFont)
        setDefaultFont();
    m_title = title;
    if (m_titleType == TitleWidget)
        warnOfMix("setTitle", 56);
    setTitleType(TitleText);
}

void WidgetListItem::setTitle(QWidget *title)
{
    if (!title)
        return;
    m_titleStack->addWidget(title);
    if (m_titleType == TitleText)
        warnOfMix("setTitle", 66);
    setTitleType(TitleWidget);
}

void WidgetListItem::setTitleType(TitleType type)
{
    // From now on the layout decides whether the badge is seen. Until then it need not be dressed.
    if (m_titleType == TitleNone && !isVisible())
        m_serialNumLabel->hide();
    m_titleType = type;
}

void WidgetListItem::addValue(QString value)
{
    m_values.append(value);
    if (m_valueType == ValueWidget)
        warnOfMix("addValue", 96);
    m_valueType = ValueText;
}

void WidgetListItem::addValue(QWidget *value)
{
    if (!value)
        return;
    m_valueStack->addWidget(value);
    if (m_valueType == ValueText)
        warnOfMix("addValue", 106);
    m_valueType = ValueWidget;
}

void WidgetListItem::insertValue(int index, QWidget *value)
{
    if (m_valueType != ValueWidget) {
        warnOfMix("insertValue", 118);
        return;
    }
    if (value && !rejectsIndex(SourcePath, "insertValue", index, m_valueStack->count() + 1))
        m_valueStack->insertWidget(index, value);
}

void WidgetListItem::removeValue(int index)
{
    if (m_valueType != ValueWidget) {
        warnOfMix("removeValue", 129);
        return;
    }
    if (!rejectsIndex(SourcePath, "removeValue", index, m_valueStack->count()))
        m_valueStack->removeWidget(m_valueStack->widget(index));
}

void WidgetListItem::removeAllValue()
{
    m_values.clear();
}

void WidgetListItem::replaceValue(int index, QString value, bool defaultFont)
{
    if (index >= m_values.size())
        return;
    if (rejectsIndex(SourcePath, "replaceValue", index, m_values.size()))
        return;
    if (defaultFont)
        setDefaultFont();
    m_values[index] = value;
}

void WidgetListItem::setDisplayValue(int index, QString value, bool clearAfterRefresh)
{
    if (m_valueType == ValueWidget)
        return;
    if (index >= 0 && index < m_values.size())
        m_values[index] = value;
    else
        m_values.append(value);
    m_displayIndex = index;
    m_valueType = ValueDisplay;

    placeOnLine(m_titleLabel, UpperLineTop);
    m_titleLabel->setAlignment(TitleAlignmentAboveSetValue);
    placeOnLine(m_valueLabel, LowerLineTop);
    m_valueLabel->setAlignment(ValueAlignment);
    showWithParent(m_valueLabel);
    updateValue();
    setDefaultFont();
    m_clearAfterRefresh = clearAfterRefresh;
}

void WidgetListItem::setDisplayValueIndex(int index)
{
    m_displayIndex = index;
    showCurrentValue();
}

void WidgetListItem::selectByValue(QString value, bool byPrefix)
{
    if (m_valueType != ValueText)
        return;
    int found = 0;
    for (int i = 0; i < m_values.size(); ++i) {
        if (byPrefix ? m_values.at(i).startsWith(value) : m_values.at(i) == value) {
            found = i;
            break;
        }
    }
    setDisplayValueIndex(found);
}

QString WidgetListItem::getDisplayValue() const
{
    return m_valueType == ValueWidget ? QString() : m_valueLabel->text();
}

void WidgetListItem::setSelectableRange(int from, int to)
{
    m_selectableFrom = from;
    m_selectableTo = to;
}

void WidgetListItem::setSerialNum(bool show, int number)
{
    if (show)
        m_serialNum = QString::number(number);
    m_showSerialNum = show;
}

void WidgetListItem::setMoreDepth(bool moreDepth)
{
    m_moreDepth = moreDepth;
}

void WidgetListItem::setValueOnRightSide(bool valueOnRightSide)
{
    m_valueOnRightSide = valueOnRightSide;
}

void WidgetListItem::setDeletable(bool deletable)
{
    m_deletable = deletable;
}

void WidgetListItem::setModifiable(bool modifiable)
{
    m_modifiable = modifiable;
    updateArrows();
}

void WidgetListItem::backup()
{
    m_backupValue = m_valueLabel->text();
    m_backupIndex = m_displayIndex;
}

bool WidgetListItem::isModified()
{
    if (m_ignoreModified)
        return false;
    if (m_valueType == ValueWidget)
        return m_backupIndex != m_displayIndex;
    return m_valueLabel->text() != m_backupValue;
}

void WidgetListItem::selectByShortcut()
{
    Logging::log(Logging::LogTrace, "[%s, %d]", "selectByShortcut", 259);
    if (m_moreDepth)
        emit doEnter();
    else
        Logging::log(Logging::LogError, "[%s, %d] Not selectable by shortcut", "selectByShortcut", 264);
}

bool WidgetListItem::hasValue() const
{
    return m_valueType != ValueNone;
}

RowLook WidgetListItem::look() const
{
    RowLook look;
    look.hasBadge = m_showSerialNum && !m_noShortcut;
    look.hasValue = hasValue();
    look.hasSeveralValues = m_values.size() >= 2 || m_valueStack->count() >= 2;
    look.valueOnRightSide = m_valueOnRightSide;
    look.moreDepth = m_moreDepth;
    look.deletable = m_deletable;
    look.modifiable = m_modifiable;
    return look;
}

QString WidgetListItem::currentText() const
{
    const bool exists = m_displayIndex >= 0 && m_displayIndex < m_values.size();
    return exists ? m_values.at(m_displayIndex) : QString();
}

void WidgetListItem::showCurrentValue()
{
    if (m_valueType == ValueText)
        updateValue();
    else
        m_valueStack->setCurrentIndex(m_displayIndex);
}

void WidgetListItem::refresh()
{
    if (!m_values.isEmpty() && m_valueStack->count() > 0)
        Logging::log(Logging::LogError, "[%s, %d] This is not supported!!!!", "refresh", 326);

    showTitleOfKind();
    layOutValue();
    if (m_titleType != TitleNone)
        layOutBadge();
    layOutTitle();
    if (m_valueOnRightSide)
        updateValue();

    setDefaultFont();
    updateTitle();

    if (m_clearAfterRefresh && m_valueType != ValueWidget && !m_values.isEmpty()) {
        m_clearAfterRefresh = false;
        if (m_displayIndex >= 0 && m_displayIndex < m_values.size())
            m_values[m_displayIndex] = QString();
        // A row of two lines goes on showing the text that it has just forgotten, one of one line does not.
        if (m_valueOnRightSide)
            updateValue();
    }
}

void WidgetListItem::layOutTitle()
{
    QRect labelRect = m_titleType == TitleText ? look().titleRect() : m_titleLabel->geometry();
    if (m_titleType == TitleText)
        applyStyleSheet(m_titleLabel, rowDress(false).titleSheet);
    else if (m_titleType == TitleWidget)
        m_titleStack->setGeometry(look().titleRect());

    // It is the label that takes the room of the arrows, also where it is not the label that shows the title.
    labelRect = RowLook::titleRectBesideArrows(labelRect, updateArrows());

    if (m_valueOnRightSide) {
        const int width = m_fittedTitle->textWidth(m_title, m_titleFont);
        labelRect = RowLook::titleRectOnSharedLine(width);
        m_titleLabel->setAlignment(TitleAlignment);
        m_valueLabel->setGeometry(RowLook::valueRectOnSharedLine(width));
        m_valueLabel->setAlignment(ValueAlignmentOnSharedLine);
    }
    m_titleLabel->setGeometry(labelRect);
}

void WidgetListItem::showTitleOfKind()
{
    if (m_titleType == TitleText) {
        showWithParent(m_titleLabel);
        m_titleStack->hide();
    } else if (m_titleType == TitleWidget) {
        m_titleLabel->hide();
        showWithParent(m_titleStack);
    }
}

void WidgetListItem::layOutValue()
{
    if (m_valueType == ValueWidget) {
        m_valueStack->setGeometry(look().valueRect(true));
        showWithParent(m_valueStack);
        m_valueLabel->hide();
        return;
    }

    // On one line layOutTitle() places the label instead, beside the title.
    if (!m_valueOnRightSide) {
        m_valueLabel->setGeometry(look().valueRect(m_moreDepth || m_valueStack->count() > 1));
        m_valueLabel->setAlignment(ValueAlignment);
    }
    if (m_values.isEmpty()) {
        m_titleLabel->setAlignment(TitleAlignment);
        m_valueLabel->hide();
    } else {
        if (!m_valueOnRightSide)
            updateValue();
        showWithParent(m_valueLabel);
    }
    m_valueStack->hide();
}

void WidgetListItem::layOutBadge()
{
    if (!look().hasBadge) {
        m_serialNumLabel->hide();
        return;
    }
    applyStyleSheet(m_serialNumLabel, rowDress(false).badgeSheet);
    m_serialNumLabel->setText(m_serialNum);
    m_serialNumLabel->setGeometry(RowLook::badgeRect());
    m_serialNumLabel->setAlignment(BadgeAlignment);
    showWithParent(m_serialNumLabel);
}

void WidgetListItem::updateTitle()
{
    m_titleLabel->setText(m_fittedTitle->fit(m_title, m_titleFont, m_titleLabel->width()));
    // A title that was replaced while it scrolled must not come back at the next step.
    if (m_marqueeTimer != 0 && m_titleLabel->m_marqueeText != marqueeText(m_title)) {
        stopMarquee();
        if (titleIsCut())
            startMarquee();
    }
}

void WidgetListItem::updateValue()
{
    m_valueLabel->setText(m_fittedValue->fit(currentText(), m_valueFont, m_valueLabel->width()));
}

int WidgetListItem::updateArrows()
{
    const RowLook row = look();
    // Counts what is decided here: a row that is not shown itself has no visible arrows.
    return int(placeArrow(m_prevArrow, row.hasPrevArrow(), rowDress(false).prevArrowSheet, RowLook::prevArrowRect(height())))
        + int(placeArrow(m_nextArrow, row.hasNextArrow(), rowDress(false).nextArrowSheet, RowLook::nextArrowRect(height())));
}

bool WidgetListItem::placeArrow(QLabel *arrow, bool wanted, const QString &sheet, const QRect &rect)
{
    if (wanted) {
        applyStyleSheet(arrow, sheet);
        arrow->setGeometry(rect);
    }
    const bool shown = wanted && m_modifiable;
    if (shown)
        showWithParent(arrow);
    else
        arrow->hide();
    return shown;
}

void WidgetListItem::setDefaultFont()
{
    m_titleFont = look().titleFont();
    applyFont(m_titleLabel, m_titleFont);
    applyFont(m_serialNumLabel, RowLook::badgeFont());
    m_valueFont = RowLook::valueFont();
    applyFont(m_valueLabel, m_valueFont);
}

void WidgetListItem::showEvent(QShowEvent *)
{
    if (!m_refreshedUnseen)
        refresh();
    m_refreshedUnseen = false;
    m_wasShown = true;
}

bool WidgetListItem::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        dressFocused();
        break;
    case QEvent::FocusOut:
        dressUnfocused();
        break;
    case QEvent::Hide:
        if (stopMarquee())
            updateTitle();
        break;
    default:
        break;
    }
    return Widget::event(event);
}

bool WidgetListItem::eventFilter(QObject *watched, QEvent *event)
{
    // Nobody tells the row that its m_marquee has been switched off.
    if (event->type() == QEvent::Timer && watched == m_titleLabel && !m_marquee && stopMarquee()) {
        updateTitle();
        return true;
    }
    return Widget::eventFilter(watched, event);
}

void WidgetListItem::dressFocused()
{
    dress(true);
    if (m_titleType == TitleText && m_marquee && titleIsCut())
        startMarquee();
}

void WidgetListItem::dressUnfocused()
{
    dress(false);
    const bool scrolled = stopMarquee();
    if (scrolled || (m_titleType == TitleText && m_marquee))
        updateTitle();
}

void WidgetListItem::dress(bool focused)
{
    const RowDress &dress = rowDress(focused);
    if (m_titleType == TitleText)
        applyStyleSheet(m_titleLabel, dress.titleSheet);
    else if (m_titleType == TitleWidget)
        applyStyleSheet(m_titleStack, dress.titleSheet);

    if (m_valueType == ValueWidget)
        applyStyleSheet(m_valueStack, dress.valueSheet);
    else if (hasValue())
        applyStyleSheet(m_valueLabel, dress.valueSheet);

    applyStyleSheet(m_serialNumLabel, dress.badgeSheet);
    applyStyleSheet(m_prevArrow, dress.prevArrowSheet);
    applyStyleSheet(m_nextArrow, dress.nextArrowSheet);
}

bool WidgetListItem::titleIsCut()
{
    return !m_fittedTitle->fits(m_title, m_titleFont, m_titleLabel->width());
}

void WidgetListItem::startMarquee()
{
    stopMarquee();
    m_marqueeTimer = m_titleLabel->startTimer(MarqueeInterval);
    m_titleLabel->m_marqueeText = marqueeText(m_title);
    m_titleLabel->m_timerId = m_marqueeTimer;
    m_titleLabel->m_offset = 0;
}

bool WidgetListItem::stopMarquee()
{
    // The label's own note of the timer outlives it and may name somebody else's timer by now.
    if (m_marqueeTimer == 0)
        return false;
    m_titleLabel->killTimer(m_marqueeTimer);
    m_marqueeTimer = 0;
    return true;
}

void WidgetListItem::keyReleaseEvent(QKeyEvent *event)
{
    Logging::log(Logging::LogTrace, "[%s,%s]", SourcePath, "keyReleaseEvent");
    const int key = event->key();
    if (isLeftKey(key)) {
        handleLeftKey(event);
    } else if (isRightKey(key)) {
        handleRightKey(event);
    } else if (isOKKey(key) && m_enterOnOK) {
        playSound(ClickSound);
        emit doEnter();
    } else {
        event->ignore();
    }
}

void WidgetListItem::handleLeftKey(QKeyEvent *event)
{
    if (!m_modifiable) {
        playSound(ClickSound);
        return;
    }
    const bool fixed = m_valueType == ValueNone || m_valueType == ValueDisplay;
    if (fixed || !(stepInRange(-1) || stepThroughValues(-1)))
        event->ignore();
}

void WidgetListItem::handleRightKey(QKeyEvent *event)
{
    if (!m_modifiable) {
        playSound(ClickSound);
        return;
    }
    const bool fixed = m_valueType == ValueNone || m_valueType == ValueDisplay;
    if (fixed && !m_moreDepth) {
        event->ignore();
        return;
    }
    if (stepInRange(+1) || stepThroughValues(+1))
        return;
    // The list gets the key as well. Ignored first: a slot may delete the row.
    event->ignore();
    if (m_moreDepth) {
        playSound(ClickSound);
        emit doEnter();
    }
}

bool WidgetListItem::stepInRange(int direction)
{
    if (m_selectableFrom == -1 || m_selectableTo == -1 || m_selectableFrom > m_selectableTo)
        return false;
    if (m_selectableFrom == m_selectableTo) {
        m_displayIndex = m_selectableFrom;
    } else {
        m_displayIndex += direction;
        if (direction < 0 && m_displayIndex < m_selectableFrom)
            m_displayIndex = m_selectableTo;
        else if (direction > 0 && m_displayIndex > m_selectableTo)
            m_displayIndex = m_selectableFrom;
    }
    showCurrentValue();
    reportChange();
    return true;
}

bool WidgetListItem::stepThroughValues(int direction)
{
    int count = 0;
    if (m_valueType == ValueText)
        count = m_values.size();
    else if (m_valueType == ValueWidget)
        count = m_valueStack->count();
    if (count < 2)
        return false;

    m_displayIndex = valueBeside(m_displayIndex, direction, count);
    showCurrentValue();
    reportChange();
    return true;
}

void WidgetListItem::reportChange()
{
    const QPointer<WidgetListItem> row(this);
    emit doChange();
    if (row)
        playSound(ClickSound);
}
