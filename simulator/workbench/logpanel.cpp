#include "logpanel.h"

#include "filterline.h"

#include "platform/desktop/desktoplog.h"
#include "platform/logging.h"

#include <QApplication>
#include <QButtonGroup>
#include <QClipboard>
#include <QHBoxLayout>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

namespace {

/// The oldest go when there are more.
const int MostLines = 5000;

const int LevelRole = Qt::UserRole;
const int NoLevel = 0;

const QColor ErrorInk(0xa4, 0x1e, 0x22);

const struct
{
    int level;
    const char *name;
    const char *hint;
} levels[] = {
    {NoLevel, "Nothing", "Log nothing"},
    {Logging::LogError, "Errors", "Log rejected calls"},
    {Logging::LogTrace, "Traces", "Log rejected calls and what goes on"},
    {Logging::LogNotice, "All", "Log everything"},
};

}

/// Leaves the lines up to a level.
class LogFilter : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setLevel(int level)
    {
        m_level = level;
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override
    {
        return sourceModel()->index(row, 0, parent).data(LevelRole).toInt() <= m_level
                && QSortFilterProxyModel::filterAcceptsRow(row, parent);
    }

private:
    int m_level = NoLevel;
};

LogPanel::LogPanel(QWidget *parent)
    : QWidget(parent),
      m_filter(new LogFilter(this)),
      m_levels(new QButtonGroup(this)),
      m_text(new FilterLine(this)),
      m_view(new QListView(this))
{
    QHBoxLayout *bar = new QHBoxLayout;
    for (const auto &level : levels) {
        QPushButton *button = new QPushButton(QString::fromLatin1(level.name), this);
        button->setCheckable(true);
        button->setToolTip(QString::fromLatin1(level.hint));
        m_levels->addButton(button, level.level);
        connect(button, &QPushButton::clicked, this, [this, value = level.level] { setLevel(value); });
        bar->addWidget(button);
    }

    m_text->setPlaceholderText(QStringLiteral("Lines with"));
    connect(m_text, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_filter->setFilterFixedString(text);
        emit textChanged(text);
    });
    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_filter->setSourceModel(&m_lines);

    m_view->setModel(m_filter);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setWordWrap(true);
    m_view->setResizeMode(QListView::Adjust);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);

    QPushButton *copyButton = new QPushButton(QStringLiteral("Copy"), this);
    copyButton->setToolTip(QStringLiteral("Copy the selected lines, or all that are shown"));
    connect(copyButton, &QPushButton::clicked, this, &LogPanel::copy);
    QPushButton *clearButton = new QPushButton(QStringLiteral("Clear"), this);
    connect(clearButton, &QPushButton::clicked, &m_lines, [this] { m_lines.removeRows(0, m_lines.rowCount()); });
    QHBoxLayout *search = new QHBoxLayout;
    search->addWidget(m_text, 1);
    search->addWidget(copyButton);
    search->addWidget(clearButton);

    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addLayout(search);
    layout->addWidget(m_view, 1);

    setLevel(Desktop::logLevel());
    Desktop::setLogListener([this](int level, const std::string &line) {
        const QString text = QString::fromLocal8Bit(line.c_str());
        QMetaObject::invokeMethod(this, [=] { add(level, text); }, Qt::QueuedConnection);
    });
}

LogPanel::~LogPanel()
{
    Desktop::setLogListener({});
}

void LogPanel::setLevel(int level)
{
    // Between two of them, the button is that of the lower one.
    int shown = NoLevel;
    for (const auto &known : levels) {
        if (known.level <= level)
            shown = known.level;
    }
    m_levels->button(shown)->setChecked(true);
    m_filter->setLevel(level);
    Desktop::setLogLevel(level);
    emit levelChanged(level);
}

void LogPanel::setText(const QString &text)
{
    m_text->setText(text);
}

QString LogPanel::text() const
{
    return m_text->text();
}

QStringList LogPanel::lines() const
{
    const QItemSelectionModel *selection = m_view->selectionModel();
    QStringList lines;
    for (int row = 0; row < m_filter->rowCount(); ++row) {
        const QModelIndex index = m_filter->index(row, 0);
        if (!selection->hasSelection() || selection->isSelected(index))
            lines += index.data().toString();
    }
    return lines;
}

void LogPanel::add(int level, const QString &line)
{
    QScrollBar *bar = m_view->verticalScrollBar();
    const bool followsTheLast = bar->value() == bar->maximum();
    QStandardItem *item = new QStandardItem(line);
    item->setData(level, LevelRole);
    if (level <= Logging::LogError)
        item->setForeground(ErrorInk);
    m_lines.appendRow(item);
    if (m_lines.rowCount() > MostLines)
        m_lines.removeRow(0);
    if (followsTheLast)
        m_view->scrollToBottom();
}

void LogPanel::copy()
{
    QGuiApplication::clipboard()->setText(lines().join(QLatin1Char('\n')));
}
