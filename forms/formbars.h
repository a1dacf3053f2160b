#ifndef FORMBARS_H
#define FORMBARS_H

#include "widgetbottom.h"
#include "widgetbottomguide.h"
#include "widgeticongroup.h"
#include "widgetstatusbar.h"
#include "widgettamark.h"

#include <QStringList>

/// A WidgetStatusBar for forms: its icons stay at its right end when it is resized.
class FormStatusBar : public WidgetStatusBar
{
    Q_OBJECT
    Q_PROPERTY(int iconWidth READ iconWidth WRITE setIconWidth)
    Q_PROPERTY(QStringList icon0Sheets READ icon0Sheets WRITE setIcon0Sheets)
    Q_PROPERTY(QStringList icon1Sheets READ icon1Sheets WRITE setIcon1Sheets)
    Q_PROPERTY(QStringList icon2Sheets READ icon2Sheets WRITE setIcon2Sheets)
    Q_PROPERTY(QStringList icon3Sheets READ icon3Sheets WRITE setIcon3Sheets)

public:
    explicit FormStatusBar(QWidget *parent = 0);

    /// The width of an icon in pixels, 23 at first.
    int iconWidth() const { return m_iconWidth; }
    void setIconWidth(int width);

    /// The sheets of an icon, one for each of its states 0 to 2.
    QStringList icon0Sheets() const { return m_sheets[0]; }
    QStringList icon1Sheets() const { return m_sheets[1]; }
    QStringList icon2Sheets() const { return m_sheets[2]; }
    QStringList icon3Sheets() const { return m_sheets[3]; }
    void setIcon0Sheets(const QStringList &sheets) { setIconSheets(0, sheets); }
    void setIcon1Sheets(const QStringList &sheets) { setIconSheets(1, sheets); }
    void setIcon2Sheets(const QStringList &sheets) { setIconSheets(2, sheets); }
    void setIcon3Sheets(const QStringList &sheets) { setIconSheets(3, sheets); }

    virtual QSize sizeHint() const { return QSize(220, 24); }

protected:
    virtual void resizeEvent(QResizeEvent *event);

private:
    int m_iconWidth;
    QStringList m_sheets[4];

    void setIconSheets(int icon, const QStringList &sheets);
    void placeIcons();
};

/// A WidgetBottom for forms: its halves fill it.
class FormBottom : public WidgetBottom
{
    Q_OBJECT
    Q_PROPERTY(QString leftSheet READ leftSheet WRITE setLeftSheet)
    Q_PROPERTY(QString rightSheet READ rightSheet WRITE setRightSheet)
    Q_PROPERTY(QStringList picture0Sheets READ picture0Sheets WRITE setPicture0Sheets)
    Q_PROPERTY(QStringList picture1Sheets READ picture1Sheets WRITE setPicture1Sheets)
    Q_PROPERTY(QStringList picture2Sheets READ picture2Sheets WRITE setPicture2Sheets)
    Q_PROPERTY(QStringList picture3Sheets READ picture3Sheets WRITE setPicture3Sheets)

public:
    explicit FormBottom(QWidget *parent = 0);

    /// The sheets of the halves: a dark ground at first.
    QString leftSheet() const { return m_leftSheet; }
    QString rightSheet() const { return m_rightSheet; }
    void setLeftSheet(const QString &sheet);
    void setRightSheet(const QString &sheet);

    /// The sheets of a picture, one for each of its states 0 to 5. State 0 is shown; statusBottomShow() shows others.
    QStringList picture0Sheets() const { return m_sheets[0]; }
    QStringList picture1Sheets() const { return m_sheets[1]; }
    QStringList picture2Sheets() const { return m_sheets[2]; }
    QStringList picture3Sheets() const { return m_sheets[3]; }
    void setPicture0Sheets(const QStringList &sheets) { setPictureSheets(0, sheets); }
    void setPicture1Sheets(const QStringList &sheets) { setPictureSheets(1, sheets); }
    void setPicture2Sheets(const QStringList &sheets) { setPictureSheets(2, sheets); }
    void setPicture3Sheets(const QStringList &sheets) { setPictureSheets(3, sheets); }

    virtual QSize sizeHint() const { return QSize(220, 30); }

protected:
    virtual void resizeEvent(QResizeEvent *event);

private:
    QString m_leftSheet;
    QString m_rightSheet;
    QStringList m_sheets[4];

    void setPictureSheets(int picture, const QStringList &sheets);
};

/// A WidgetBottomGuide for forms.
class FormBottomGuide : public WidgetBottomGuide
{
    Q_OBJECT
    Q_PROPERTY(int page READ page WRITE setPage)
    Q_PROPERTY(int pageCount READ pageCount WRITE setPageCount)

public:
    explicit FormBottomGuide(QWidget *parent = 0);

    int page() const { return m_page; }
    void setPage(int page);
    int pageCount() const { return m_pageCount; }
    void setPageCount(int count);

    virtual QSize sizeHint() const { return QSize(220, 24); }

protected:
    virtual void resizeEvent(QResizeEvent *event);

private:
    int m_page;
    int m_pageCount;
};

/// A WidgetIconGroup for forms.
class FormIconGroup : public WidgetIconGroup
{
    Q_OBJECT
    Q_ENUMS(Alignment)
    Q_PROPERTY(QStringList iconSheets READ iconSheets WRITE setIconSheets)
    Q_PROPERTY(QString seperatorSheet READ seperatorSheet WRITE setSeperatorSheet)
    Q_PROPERTY(Alignment alignment READ alignment WRITE setAlignment)

public:
    enum Alignment {
        AlignTop = 0,     ///< 2 pixels above the middle
        AlignCenter = 1,  ///< as after construction
        AlignBottom = 2   ///< 2 pixels below the middle
    };

    explicit FormIconGroup(QWidget *parent = 0);

    /// The sheets of the icons 0 to 2, left to right. An icon without one stays hidden.
    QStringList iconSheets() const { return m_iconSheets; }
    void setIconSheets(const QStringList &sheets);

    /// The sheet of both separators.
    QString seperatorSheet() const { return m_seperatorSheet; }
    void setSeperatorSheet(const QString &sheet);

    Alignment alignment() const { return m_alignment; }
    void setAlignment(Alignment alignment);

    virtual QSize sizeHint() const { return QSize(122, 24); }

private:
    QStringList m_iconSheets;
    QString m_seperatorSheet;
    Alignment m_alignment;
};

/// A WidgetTAMark for forms.
class FormTAMark : public WidgetTAMark
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)

public:
    explicit FormTAMark(QWidget *parent = 0);

    QString text() const { return m_text; }
    void setText(const QString &text);

    virtual QSize sizeHint() const { return QSize(220, 44); }

protected:
    virtual void resizeEvent(QResizeEvent *event);

private:
    QString m_text;
};

#endif
