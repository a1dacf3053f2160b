#ifndef FORMLABELS_H
#define FORMLABELS_H

#include "widgetmarqueelable.h"
#include "widgetprogressbar.h"

/// A WidgetMarqueeLable for forms: it circulates its text() by itself.
class FormMarqueeLable : public WidgetMarqueeLable
{
    Q_OBJECT
    Q_PROPERTY(int interval READ interval WRITE setInterval)

public:
    explicit FormMarqueeLable(QWidget *parent = 0);

    /// The time in milliseconds after which the text moves on by one character; 0, as at first: it stands still. A text
    /// that is set while it moves is taken at the next setInterval().
    int interval() const { return m_interval; }
    void setInterval(int interval);

    virtual QSize sizeHint() const;

protected:
    virtual void timerEvent(QTimerEvent *event);

private:
    int m_interval;
    bool m_hasText;
};

/// A WidgetProgressBar for forms.
class FormProgressBar : public WidgetProgressBar
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(int used READ used WRITE setUsed)
    Q_PROPERTY(int capacity READ capacity WRITE setCapacity)

public:
    explicit FormProgressBar(QWidget *parent = 0);

    QString title() const { return m_title; }
    void setTitle(const QString &title);

    /// The used amount, 0 at first.
    int used() const { return m_used; }
    void setUsed(int used);

    /// The capacity, 100 at first.
    int capacity() const { return m_capacity; }
    void setCapacity(int capacity);

    virtual QSize sizeHint() const { return QSize(220, 46); }

private:
    QString m_title;
    int m_used;
    int m_capacity;
};

#endif
