#ifndef FORMKEYPAD_H
#define FORMKEYPAD_H

#include "widgetkeypad.h"

#include <QStringList>

/// A WidgetKeypad for forms, with the default pictures in the cells of F3 and F4. The digit keys stand as on a telephone;
/// * and # go to the page before and after.
class FormKeypad : public WidgetKeypad
{
    Q_OBJECT
    Q_PROPERTY(QStringList pages READ pages WRITE setPages)
    Q_PROPERTY(QString initialText READ initialText WRITE setInitialText)
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    Q_PROPERTY(bool password READ isPassword WRITE setPassword)
    Q_PROPERTY(int maxLength READ maxLength WRITE setMaxLength)
    Q_PROPERTY(int lineTextHeight READ lineTextHeight WRITE setLineTextHeight)
    Q_PROPERTY(QString button1Text READ button1Text WRITE setButton1Text)
    Q_PROPERTY(QString button2Text READ button2Text WRITE setButton2Text)

public:
    explicit FormKeypad(QWidget *parent = 0);

    /// What the keys type, up to six pages of twelve keys, row by row, with a blank between two keys. At first there are
    /// small letters, capitals and digits.
    QStringList pages() const { return m_pages; }
    void setPages(const QStringList &pages);

    QString initialText() const { return m_initialText; }
    void setInitialText(const QString &text);

    QString placeholderText() const { return m_placeholderText; }
    void setPlaceholderText(const QString &text);

    /// Whether the text is hidden, the initial text as well.
    bool isPassword() const { return m_isPassword; }
    void setPassword(bool password);

    int maxLength() const { return m_maxLength; }
    void setMaxLength(int length);

    /// The height of the text line in pixels, 38 at first.
    int lineTextHeight() const { return m_lineTextHeight; }
    void setLineTextHeight(int height);

    QString button1Text() const { return m_button1Text; }
    void setButton1Text(const QString &text);
    QString button2Text() const { return m_button2Text; }
    void setButton2Text(const QString &text);

    virtual QSize sizeHint() const { return QSize(220, 176); }

protected:
    virtual void resizeEvent(QResizeEvent *event);

private Q_SLOTS:
    void turnPage(int key);

private:
    QStringList m_pages;
    QString m_initialText;
    QString m_placeholderText;
    bool m_isPassword;
    int m_maxLength;
    int m_lineTextHeight;
    QString m_button1Text;
    QString m_button2Text;

    void layOut();
};

#endif
