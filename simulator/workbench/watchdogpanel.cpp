#include "watchdogpanel.h"

#include "platform/desktop/desktopwatchdog.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const int RefreshPeriod = 200;

enum Column { NameColumn, AgeColumn, HoldColumn };

const QColor HangingInk(0xa4, 0x1e, 0x22);

/// The part of a thread's name that tells it from others: "ClockUpdateThread" of
/// "virtual void ClockUpdateThread::run()".
QString shortName(const std::string &name)
{
    QString text = QString::fromStdString(name);
    text.remove(QStringLiteral("virtual void "));
    text.remove(QStringLiteral("::run()"));
    return text;
}

QString seconds(double value)
{
    return QStringLiteral("%1 s").arg(value, 0, 'f', 1);
}

}

WatchdogPanel::WatchdogPanel(QWidget *parent)
    : QWidget(parent),
      m_threads(new QTreeWidget(this)),
      m_verdict(new QLabel(this))
{
    m_threads->setHeaderLabels({QStringLiteral("Thread"), QStringLiteral("Last kick"), QString()});
    m_threads->setRootIsDecorated(false);
    m_threads->setSelectionMode(QAbstractItemView::NoSelection);
    m_threads->header()->setStretchLastSection(false);
    m_threads->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    m_threads->header()->setSectionResizeMode(AgeColumn, QHeaderView::ResizeToContents);
    m_threads->header()->setSectionResizeMode(HoldColumn, QHeaderView::ResizeToContents);
    m_verdict->setWordWrap(true);

    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addWidget(m_threads, 1);
    layout->addWidget(m_verdict);

    connect(&m_refreshTimer, &QTimer::timeout, this, &WatchdogPanel::refresh);
}

void WatchdogPanel::showEvent(QShowEvent *event)
{
    refresh();
    m_refreshTimer.start(RefreshPeriod);
    QWidget::showEvent(event);
}

void WatchdogPanel::hideEvent(QHideEvent *event)
{
    m_refreshTimer.stop();
    QWidget::hideEvent(event);
}

void WatchdogPanel::list()
{
    m_threads->clear();
    for (unsigned int id : std::as_const(m_ids)) {
        QTreeWidgetItem *item = new QTreeWidgetItem(m_threads);
        QPushButton *hold = new QPushButton(QStringLiteral("Hold"), m_threads);
        hold->setFocusPolicy(Qt::NoFocus);
        hold->setCheckable(true);
        hold->setToolTip(QStringLiteral("Keep the thread in its next kick, as if it hung"));
        connect(hold, &QPushButton::clicked, this, [this, id](bool held) {
            if (held)
                Desktop::holdThread(id);
            else
                Desktop::releaseThread(id);
            refresh();
        });
        m_threads->setItemWidget(item, HoldColumn, hold);
    }
}

void WatchdogPanel::refresh()
{
    const std::vector<Desktop::WatchedThread> threads = Desktop::watchedThreads();
    QList<unsigned int> ids;
    for (const Desktop::WatchedThread &thread : threads)
        ids += thread.id;
    if (ids != m_ids) {
        m_ids = ids;
        list();
    }

    QStringList hanging;
    for (int i = 0; i < m_ids.size(); ++i) {
        const Desktop::WatchedThread &thread = threads[std::size_t(i)];
        QTreeWidgetItem *item = m_threads->topLevelItem(i);
        item->setText(NameColumn, shortName(thread.name));
        item->setToolTip(NameColumn, QString::fromStdString(thread.name));
        item->setText(AgeColumn, seconds(thread.secondsSinceKick));
        const QBrush ink = thread.hanging ? QBrush(HangingInk) : QBrush();
        item->setForeground(NameColumn, ink);
        item->setForeground(AgeColumn, ink);
        static_cast<QPushButton *>(m_threads->itemWidget(item, HoldColumn))->setChecked(thread.held);
        if (thread.hanging)
            hanging += shortName(thread.name);
    }

    const QString limit = seconds(double(Desktop::watchTimeout().count()) / 1000);
    if (m_ids.isEmpty())
        m_verdict->setText(QStringLiteral("No thread is watched. The screen \"clock\" has some."));
    else if (hanging.isEmpty())
        m_verdict->setText(QStringLiteral("All have answered within %1.").arg(limit));
    else
        m_verdict->setText(QStringLiteral("%1 has not answered for %2. A device would start anew now.")
                               .arg(hanging.join(QStringLiteral(", ")), limit));
}
