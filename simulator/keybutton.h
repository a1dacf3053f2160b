#ifndef KEYBUTTON_H
#define KEYBUTTON_H

#include <QTimer>
#include <QWidget>

class Device;

/// A key of the device to click. Held down it repeats as the device's own keys do.
class KeyButton : public QWidget
{
public:
    /// What stands on a key.
    struct Face
    {
        int key;
        const char *label;
        const char *letters;  ///< below the label; may be empty
    };

    KeyButton(const Face &face, Device &device, QWidget *parent);

    int key() const { return m_face.key; }

    /// Shows the key as pressed or not.
    void setDown(bool down);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    const Face m_face;
    Device &m_device;
    QTimer m_repeatTimer;
    bool m_down = false;
};

#endif
