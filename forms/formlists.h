#ifndef FORMLISTS_H
#define FORMLISTS_H

#include "widgetlist.h"
#include "widgetlistitem.h"
#include "widgetlistview.h"

#include <QStringList>

class QStringListModel;

/// A WidgetList for forms. Its rows are lines of text; the application may as well fill it with addListItem().
class FormList : public WidgetList
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QString titleIconSheet READ titleIconSheet WRITE setTitleIconSheet)
    Q_PROPERTY(int itemHeight READ itemHeight WRITE setItemHeight)
    Q_PROPERTY(bool useFunctionKeys READ useFunctionKeys WRITE setUseFunctionKeys)
    Q_PROPERTY(bool stopAtEnds READ stopAtEnds WRITE setStopAtEnds)
    Q_PROPERTY(QStringList rows READ rows WRITE setRows)

public:
    explicit FormList(QWidget *parent = 0);

    QString title() const { return m_title; }
    void setTitle(const QString &title);

    /// The sheet of the title's icon.
    QString titleIconSheet() const { return m_titleIconSheet; }
    void setTitleIconSheet(const QString &sheet);

    /// The height of the rows in pixels, 46 at first.
    int itemHeight() const { return m_itemHeight; }
    void setItemHeight(int height);

    /// The key mode of the list and its rows.
    bool useFunctionKeys() const { return m_useFunctionKeys; }
    void setUseFunctionKeys(bool use);

    bool stopAtEnds() const { return m_stopAtEnds; }
    void setStopAtEnds(bool stop) { m_stopAtEnds = stop; }

    /// The rows, each "Title", "Title: value, value" or, where it leads deeper, "Title >". Replaces all rows.
    QStringList rows() const { return m_rows; }
    void setRows(const QStringList &rows);

    /// The item of \a row, to connect its signals; null if there is none.
    WidgetListItem *item(int row) const;

    virtual QSize sizeHint() const { return QSize(220, 176); }

protected:
    virtual void showEvent(QShowEvent *event);

private:
    QString m_title;
    QString m_titleIconSheet;
    int m_changes;
    int m_itemHeight;
    QStringList m_rows;
    QList<QPointer<WidgetListItem> > m_items;

    WidgetListItem *newItem(const QString &row);
    void showFirstRowSelected();
};

/// A WidgetListItem for forms: a row that stands by itself.
class FormListItem : public WidgetListItem
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QStringList values READ values WRITE setValues)
    Q_PROPERTY(int valueIndex READ valueIndex WRITE setValueIndex)
    Q_PROPERTY(int badge READ badge WRITE setBadge)
    Q_PROPERTY(bool moreDepth READ moreDepth WRITE setMoreDepth)
    Q_PROPERTY(bool valueOnRightSide READ valueOnRightSide WRITE setValueOnRightSide)
    Q_PROPERTY(bool modifiable READ modifiable WRITE setModifiable)
    Q_PROPERTY(bool enterOnOK READ enterOnOK WRITE setEnterOnOK)
    Q_PROPERTY(bool useFunctionKeys READ useFunctionKeys WRITE setUseFunctionKeys)

public:
    explicit FormListItem(QWidget *parent = 0);

    QString title() const { return m_title; }
    void setTitle(const QString &title);

    /// The values that left and right step through.
    QStringList values() const { return m_values; }
    void setValues(const QStringList &values);

    /// Which of them the row starts with.
    int valueIndex() const { return m_valueIndex; }
    void setValueIndex(int index);

    /// The number in the badge at the left end; none below 0.
    int badge() const { return m_badge; }
    void setBadge(int number);

    bool moreDepth() const { return m_moreDepth; }
    void setMoreDepth(bool moreDepth);

    bool valueOnRightSide() const { return m_valueOnRightSide; }
    void setValueOnRightSide(bool valueOnRightSide);

    bool modifiable() const { return m_modifiable; }
    void setModifiable(bool modifiable);

    bool enterOnOK() const { return m_enterOnOK; }
    void setEnterOnOK(bool enter) { m_enterOnOK = enter; }

    bool useFunctionKeys() const { return m_useFunctionKeys; }
    void setUseFunctionKeys(bool use) { m_useFunctionKeys = use; }

    virtual QSize sizeHint() const { return QSize(220, 46); }

protected:
    virtual void resizeEvent(QResizeEvent *event);

private:
    QString m_title;
    QStringList m_values;
    int m_valueIndex;
    int m_badge;
    bool m_moreDepth;
    bool m_valueOnRightSide;
    bool m_modifiable;

    void layOut();
};

/// A WidgetListView for forms. Its titles are a model of its own, until the application sets another one.
class FormListView : public WidgetListView
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QString titleIconSheet READ titleIconSheet WRITE setTitleIconSheet)
    Q_PROPERTY(int rowHeight READ rowHeight WRITE setRowHeight)
    Q_PROPERTY(bool useFunctionKeys READ useFunctionKeys WRITE setUseFunctionKeys)
    Q_PROPERTY(bool stopAtEnds READ stopAtEnds WRITE setStopAtEnds)
    Q_PROPERTY(bool enterOnOK READ enterOnOK WRITE setEnterOnOK)
    Q_PROPERTY(bool scrollOnHold READ scrollOnHold WRITE setScrollOnHold)
    Q_PROPERTY(bool jumpToLetter READ jumpToLetter WRITE setJumpToLetter)
    Q_PROPERTY(bool mirrored READ mirrored WRITE setMirrored)
    Q_PROPERTY(QStringList titles READ titles WRITE setTitles)

public:
    explicit FormListView(QWidget *parent = 0);

    QString title() const { return m_title; }
    void setTitle(const QString &title);

    /// The sheet of the title's icon.
    QString titleIconSheet() const { return m_titleIconSheet; }
    void setTitleIconSheet(const QString &sheet);

    int rowHeight() const { return m_rowHeight; }
    void setRowHeight(int height);

    bool useFunctionKeys() const { return m_useFunctionKeys; }
    void setUseFunctionKeys(bool use) { m_useFunctionKeys = use; }

    bool stopAtEnds() const { return m_stopAtEnds; }
    void setStopAtEnds(bool stop) { m_stopAtEnds = stop; }

    bool enterOnOK() const { return m_enterOnOK; }
    void setEnterOnOK(bool enter) { m_enterOnOK = enter; }

    bool scrollOnHold() const { return m_scrollOnHold; }
    void setScrollOnHold(bool scroll) { m_scrollOnHold = scroll; }

    bool jumpToLetter() const { return m_jumpToLetter; }
    void setJumpToLetter(bool jump) { m_jumpToLetter = jump; }

    bool mirrored() const { return m_mirrored; }
    void setMirrored(bool mirrored);

    /// The titles of the rows. Replaces the model.
    QStringList titles() const;
    void setTitles(const QStringList &titles);

    virtual QSize sizeHint() const { return QSize(220, 176); }

protected:
    virtual void showEvent(QShowEvent *event);

private:
    QString m_title;
    QString m_titleIconSheet;
    int m_changes;
    int m_rowHeight;
    QStringListModel *m_titles;
};

#endif
