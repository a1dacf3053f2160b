#include "look.h"

#include "commandline.h"

#include <QApplication>
#include <QFontInfo>
#include <QPalette>

namespace {

const char FontFamily[] = "DejaVu Sans Condensed";

QPalette lightPalette()
{
    const QColor paper(0xf8, 0xf7, 0xf6);
    const QColor ink(0x1f, 0x16, 0x18);
    QPalette palette(paper, paper);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, ink);
    for (QPalette::ColorRole role : {QPalette::Base, QPalette::AlternateBase})
        palette.setColor(role, paper);
    palette.setColor(QPalette::Highlight, QColor(0xf7, 0xce, 0x86));
    palette.setColor(QPalette::HighlightedText, ink);
    return palette;
}

}

void fixLook()
{
    // A point is a pixel, and a pixel of the device is --zoom pixels of the PC.
    qputenv("QT_FONT_DPI", "72");
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    qunsetenv("QT_SCALE_FACTOR");
    qunsetenv("QT_AUTO_SCREEN_SCALE_FACTOR");
    qunsetenv("QT_STYLE_OVERRIDE");
    QApplication::setDesktopSettingsAware(false);
}

void applyLook()
{
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(lightPalette());
    QApplication::setCursorFlashTime(0);

    QFont font(QString::fromLatin1(FontFamily), 12);
    if (!QFontInfo(font).exactMatch())
        complain(QStringLiteral("the font \"%1\" is not there, so pictures will differ.").arg(QLatin1String(FontFamily)));
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    QApplication::setFont(font);
}
