#include "widgetprogressbar.h"

#include "platform/logging.h"
#include "widgetdetails.h"

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QStyleOption>
#include <QStylePainter>

namespace {

const char SourcePath[] = "ui/view/widget/widgetprogressbar.cpp";

const QRect TitleRect(6, 6, 120, 14);
const QRect ValueRect(132, 6, 82, 14);
const QRect BarRect(6, 23, 208, 17);

// The toolkit does not know ":chunk" with one colon: the filled part keeps the colour of the palette.
const char BarSheet[] =
    "QProgressBar {border: 0px;background-color: #9F9898;color: rgb(255,255,255);}"
    "QProgressBar:chunk {background-color: #594B4F;}";

void trace(const char *function)
{
    Logging::log(Logging::LogTrace, "[%s, %s]", SourcePath, function);
}

// Without a range the toolkit divides by the width inside the frame.
class Bar : public QProgressBar
{
public:
    explicit Bar(QWidget *parent) : QProgressBar(parent) {}

protected:
    virtual void paintEvent(QPaintEvent *event)
    {
        if (minimum() == maximum()) {
            QStyleOptionProgressBar option;
            initStyleOption(&option);
            if (style()->subElementRect(QStyle::SE_ProgressBarContents, &option, this).width() <= 1) {
                option.maximum = option.minimum + 1;
                option.progress = option.minimum;
                QStylePainter(this).drawControl(QStyle::CE_ProgressBar, option);
                return;
            }
        }
        QProgressBar::paintEvent(event);
    }
};

// Sets a value that is replaced at once, without the bar painting it on the spot.
void setPassingValue(QProgressBar *bar, int value)
{
    const bool updatesDisabled = bar->testAttribute(Qt::WA_UpdatesDisabled);
    bar->setAttribute(Qt::WA_UpdatesDisabled, true);
    bar->setValue(value);
    bar->setAttribute(Qt::WA_UpdatesDisabled, updatesDisabled);
}

}

WidgetProgressBar::WidgetProgressBar(QWidget *parent)
    : Widget(parent, 0)
{
    setFocusPolicy(Qt::NoFocus);
    const QFont font = defaultFont(12, true);

    m_titleLabel = new QLabel(this);
    m_titleLabel->setGeometry(TitleRect);
    m_titleLabel->setStyleSheet(QLatin1String("color: rgb(31,22,24)"));
    m_titleLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_titleLabel->setFont(font);

    m_valueLabel = new QLabel(this);
    m_valueLabel->setGeometry(ValueRect);
    m_valueLabel->setStyleSheet(QLatin1String("color: rgb(89, 75, 79)"));
    m_valueLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_valueLabel->setFont(font);

    m_bar = new Bar(this);
    m_bar->setGeometry(BarRect);
    m_bar->setAlignment(Qt::AlignRight);

    setStyleSheet(QLatin1String(BarSheet));
    connect(this, SIGNAL(valueChanged(int)), m_bar, SLOT(setValue(int)));
}

void WidgetProgressBar::setItemGeometry(WidgetProgressBar::Item item, int x, int y, int w, int h)
{
    if (QWidget *part = findPart(item, "setItemGeometry", 73))
        placeWidget(part, x, y, w, h);
}

void WidgetProgressBar::setItemFont(WidgetProgressBar::Item item, int pointSize, bool)
{
    trace("setItemFont");
    const QFont font = defaultFont(pointSize, true);
    if (item == ItemTitle) {
        m_titleLabel->setFont(font);
    } else if (item == ItemValue) {
        m_valueLabel->setFont(font);
        m_bar->setFont(font);
    } else {
        rejectInvalidItem();
    }
}

void WidgetProgressBar::setItemStyle(WidgetProgressBar::Item item, QString style)
{
    trace("setItemStyle");
    if (QWidget *part = findPart(item, "setItemStyle", 124))
        applyStyleSheet(part, style);
}

void WidgetProgressBar::setItemTitle(QString text)
{
    trace("setItemTitle");
    m_titleLabel->setText(text);
}

QString WidgetProgressBar::calcIntToString(int value, bool trailingSpace)
{
    QString text = QString::number(value);
    trace("calcIntToString");
    for (int n = int(text.length()) - 3; n > 0; n -= 3)
        text.insert(n, QLatin1Char(','));
    if (trailingSpace)
        text += QLatin1Char(' ');
    return text;
}

void WidgetProgressBar::setItemUseMaxValue(int use, int max)
{
    trace("setItemUseMaxValue");
    m_bar->setRange(0, max);
    m_bar->setFormat(calcIntToString(max, true));

    // In 64 bits: the smallest integer divided by -1 is no integer.
    const int quotient = max == 0 ? 0 : int(qint64(use) / max);
    const bool passing = use != quotient && use >= m_bar->minimum() && use <= m_bar->maximum();
    if (passing)
        setPassingValue(m_bar, quotient);
    else
        m_bar->setValue(quotient);
    const QPointer<WidgetProgressBar> self(this);
    emit valueChanged(use);
    if (!self)
        return;

    m_valueLabel->setText(calcIntToString(use, false));
}

QWidget *WidgetProgressBar::findPart(WidgetProgressBar::Item item, const char *function, int line)
{
    switch (int(item)) {
    case ItemBackground:
        return this;
    case ItemTitle:
        return m_titleLabel;
    case ItemValue:
        return m_valueLabel;
    case ItemBar:
        return m_bar;
    default:
        rejectItem(function, line);
        return 0;
    }
}
