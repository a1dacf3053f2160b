#ifndef FORMSWITCHER_H
#define FORMSWITCHER_H

#include "widgetswitcher.h"

#include <QStringList>

/// A WidgetSwitcher for forms, with the default pictures as page dots.
class FormSwitcher : public WidgetSwitcher
{
    Q_OBJECT
    Q_PROPERTY(QStringList names READ names WRITE setNames)
    Q_PROPERTY(QStringList pictureSheets READ pictureSheets WRITE setPictureSheets)
    Q_PROPERTY(QStringList sidePictureSheets READ sidePictureSheets WRITE setSidePictureSheets)
    Q_PROPERTY(int initialIndex READ initialIndex WRITE setInitialIndex)
    Q_PROPERTY(bool useFunctionKeys READ useFunctionKeys WRITE setUseFunctionKeys)

public:
    explicit FormSwitcher(QWidget *parent = 0);

    /// The names of the entries 0 to 5.
    QStringList names() const { return m_names; }
    void setNames(const QStringList &names);

    /// The sheets of the entries in the middle.
    QStringList pictureSheets() const { return m_pictureSheets; }
    void setPictureSheets(const QStringList &sheets);

    /// The sheets of the entries at either side.
    QStringList sidePictureSheets() const { return m_sidePictureSheets; }
    void setSidePictureSheets(const QStringList &sheets);

    /// The entry that is selected at first, and again when something else is set here or the size changes.
    int initialIndex() const { return m_initialIndex; }
    void setInitialIndex(int index);

    bool useFunctionKeys() const { return m_useFunctionKeys; }
    void setUseFunctionKeys(bool use) { m_useFunctionKeys = use; }

    virtual QSize sizeHint() const { return QSize(220, 152); }

protected:
    virtual void resizeEvent(QResizeEvent *event);

private:
    QStringList m_names;
    QStringList m_pictureSheets;
    QStringList m_sidePictureSheets;
    int m_initialIndex;

    void setEntries(int item, const QStringList &styles);
};

#endif
