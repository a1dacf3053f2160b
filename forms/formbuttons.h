#ifndef FORMBUTTONS_H
#define FORMBUTTONS_H

#include "widgetkeypadbottom.h"
#include "widgetselecttile.h"
#include "widgetsoftbtn.h"

#include <QString>

/// A WidgetSoftBtn for forms, with the extra label.
class FormSoftBtn : public WidgetSoftBtn
{
    Q_OBJECT
    Q_PROPERTY(QString btnName READ btnName WRITE setBtnName)
    Q_PROPERTY(int pointSize READ pointSize WRITE setPointSize)
    Q_PROPERTY(QString annotationSheet READ annotationSheet WRITE setAnnotationSheet)

public:
    explicit FormSoftBtn(QWidget *parent = 0);

    QString btnName() const { return m_btnName; }
    void setBtnName(const QString &name);

    /// The size of the name, 14 points at first.
    int pointSize() const { return m_pointSize; }
    void setPointSize(int pointSize);

    /// The sheet of the extra label, 23 by 11 pixels in the top left corner.
    QString annotationSheet() const { return m_annotationSheet; }
    void setAnnotationSheet(const QString &sheet);

    virtual QSize sizeHint() const { return QSize(110, 29); }

private:
    QString m_btnName;
    int m_pointSize;
    QString m_annotationSheet;
};

/// A WidgetSelectTile for forms, in a place of its own, as it wants one.
class FormSelectTile : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString content READ content WRITE setContent)

public:
    explicit FormSelectTile(QWidget *parent = 0);

    WidgetSelectTile *tile() const { return m_tile; }

    QString content() const { return m_content; }
    void setContent(const QString &content);

    virtual QSize sizeHint() const { return QSize(110, 69); }

protected:
    virtual void resizeEvent(QResizeEvent *event);

private:
    WidgetSelectTile *m_tile;
    QString m_content;
};

/// A WidgetKeypadBottom for forms, with the default pictures in the cells of F3 and F4.
class FormKeypadBottom : public WidgetKeypadBottom
{
    Q_OBJECT
    Q_PROPERTY(QString button1Text READ button1Text WRITE setButton1Text)
    Q_PROPERTY(QString button2Text READ button2Text WRITE setButton2Text)

public:
    explicit FormKeypadBottom(QWidget *parent = 0);

    QString button1Text() const { return m_button1Text; }
    void setButton1Text(const QString &text);
    QString button2Text() const { return m_button2Text; }
    void setButton2Text(const QString &text);

    virtual QSize sizeHint() const { return QSize(220, 23); }

private:
    QString m_button1Text;
    QString m_button2Text;
};

#endif
