#ifndef FORMTITLES_H
#define FORMTITLES_H

#include "widgetmenutitle.h"
#include "widgetsimpletitle.h"

#include <QRect>
#include <QString>

/// A WidgetSimpleTitle for forms.
class FormSimpleTitle : public WidgetSimpleTitle
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QRect titleRect READ titleRect WRITE setTitleRect)

public:
    explicit FormSimpleTitle(QWidget *parent = 0);

    QString title() const { return m_title; }
    void setTitle(const QString &title);

    /// Where the title stands in the bar, in pixels: the whole bar at first.
    QRect titleRect() const { return m_titleRect; }
    void setTitleRect(const QRect &rect);

    virtual QSize sizeHint() const { return QSize(220, 38); }

private:
    QString m_title;
    QRect m_titleRect;
};

/// A WidgetMenuTitle for forms.
class FormMenuTitle : public WidgetMenuTitle
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QString iconSheet READ iconSheet WRITE setIconSheet)
    Q_PROPERTY(QString infoSheet READ infoSheet WRITE setInfoSheet)
    Q_PROPERTY(QRect infoRect READ infoRect WRITE setInfoRect)

public:
    explicit FormMenuTitle(QWidget *parent = 0);

    QString title() const { return m_title; }
    void setTitle(const QString &title);

    /// The sheet of the icon.
    QString iconSheet() const { return m_iconSheet; }
    void setIconSheet(const QString &sheet);

    /// The sheet of the information part, which is hidden until it has a sheet or a place.
    QString infoSheet() const { return m_infoSheet; }
    void setInfoSheet(const QString &sheet);

    /// Where the information part stands in the bar, in pixels. A null rectangle leaves it where it is.
    QRect infoRect() const { return m_infoRect; }
    void setInfoRect(const QRect &rect);

    virtual QSize sizeHint() const { return QSize(220, 38); }

private:
    QString m_title;
    QString m_iconSheet;
    QString m_infoSheet;
    QRect m_infoRect;
    int m_changes;
};

#endif
