#ifndef INSPECTORPANEL_H
#define INSPECTORPANEL_H

#include <QHash>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class Device;
class QTreeWidget;
class QTreeWidgetItem;

/// The widgets on the display as a tree, and of the one chosen what it is and which calls change that.
class InspectorPanel : public QWidget
{
    Q_OBJECT

public:
    explicit InspectorPanel(Device &device, QWidget *parent = nullptr);

    /// Null if none is chosen.
    QWidget *widget() const { return m_widget; }

    void setWidget(QWidget *widget);

    /// What the panel shows of the widget, for people to paste.
    QString text() const;

Q_SIGNALS:
    /// Also comes when the chosen widget has moved, or is gone.
    void widgetChanged(QWidget *widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void refresh();
    void listWidgets();
    void addWidget(QWidget *widget, QTreeWidgetItem *parent);
    void describe();
    void choose(QTreeWidgetItem *item);

    Device &m_device;
    QPointer<QWidget> m_widget;
    QTimer m_refreshTimer;
    QTreeWidget *m_tree;
    QTreeWidget *m_facts;
    QList<QWidget *> m_listed;  // to compare with only: some may be gone
    QHash<QTreeWidgetItem *, QPointer<QWidget>> m_widgets;
};

#endif
