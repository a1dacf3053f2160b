#ifndef WATCHDOGPANEL_H
#define WATCHDOGPANEL_H

#include <QList>
#include <QTimer>
#include <QWidget>

class QLabel;
class QTreeWidget;

/// The threads that the watchdog watches: how long ago each has kicked, and a switch that makes it hang.
class WatchdogPanel : public QWidget
{
    Q_OBJECT

public:
    explicit WatchdogPanel(QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void refresh();
    void list();

    QTimer m_refreshTimer;
    QList<unsigned int> m_ids;  // of the threads listed
    QTreeWidget *m_threads;
    QLabel *m_verdict;
};

#endif
