#ifndef KEYBUTTON_H
#define KEYBUTTON_H

#include <QTimer>
#include <QWidget>

class Device;

/// A key of the device to click. Held down it repeats as the device's own keys do.
class KeyButton : public QWidget
{
public:
    /// A key, and what stands on it.
    struct Face
    {
        int key;
        const char *label;
    };

    /// \a letters stand below the label and may be empty.
    KeyButton(const Face &face, const QString &letters, Device &device, QWidget *parent);

    int key() const { return m_face.key; }

    /// Shows the key as pressed or not.
    void setDown(bool down);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    const Face m_face;
    const QString m_letters;
    Device &m_device;
    QTimer m_repeatTimer;
    bool m_down = false;
};

#endif
