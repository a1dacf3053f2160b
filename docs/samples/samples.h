#ifndef SAMPLES_H
#define SAMPLES_H

#include <QColor>
#include <QImage>
#include <QWidget>

#include <memory>
#include <vector>

/// A picture of the documentation: a screen, and the function that puts something on it.
struct Sample
{
    const char *name;  ///< of the picture, and of the lines that the documentation shows beside it
    QSize size;        ///< of the screen, in pixels of the device
    QRgb ground;
    void (*arrange)(QWidget *screen);
};

const QRgb Paper = 0xfff8f7f6;
const QRgb Night = 0xff1f1618;

/// All of them, in the order of their names.
const std::vector<Sample> &allSamples();

/// Begins the function of a sample, which is given its screen as \a screen.
#define SAMPLE(name, width, height, ground) \
    static void name(QWidget *screen); \
    [[maybe_unused]] static const bool name##IsKnown = addSample({#name, QSize(width, height), ground, name}); \
    static void name(QWidget *screen)

bool addSample(const Sample &sample);

/// What a user does: shows \a screen and works \a key, \a times times.
void press(QWidget *screen, int key, int times = 1);

/// Sets up the toolkit and the platform as the simulator does. Call the first before the application is made, the second
/// after it.
void prepareLook();
void startLook();

/// The screen of \a sample as it is seen.
std::unique_ptr<QWidget> shownScreen(const Sample &sample);

/// \a screen as it is now.
QImage pictureOf(QWidget *screen);

#endif
