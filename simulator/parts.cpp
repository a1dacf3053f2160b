#include "parts.h"

#include "device.h"
#include "texts.h"

#include "platform/soundmanager.h"
#include "widgetsimpletitle.h"

#include <QLabel>
#include <QStringList>
#include <QTextLayout>

namespace {

// As in the title bars of lists.
const QRect TitlePlace(43, 0, 169, 38);
const QRect TitleIconPlace(3, 3, 32, 32);
const QRect GuidePlace(172, 11, 40, 16);
const int GapBeforeGuide = 4;
const int TitlePointSize = 14;

}

QString pictureSheet(const QString &name)
{
    return QStringLiteral("image: url(:/resource/images_l2/%1.png);").arg(name);
}

QRect placeForWriting(const QRect &place, int width)
{
    if (!writesRightToLeft())
        return place;
    return QRect(width - place.x() - place.width(), place.y(), place.width(), place.height());
}

int placeForWriting(int i, int count)
{
    return writesRightToLeft() ? count - 1 - i : i;
}

bool isBackKey(Widget *widget, int key)
{
    return writesRightToLeft() ? widget->isRightKey(key) : widget->isLeftKey(key);
}

bool isForwardKey(Widget *widget, int key)
{
    return writesRightToLeft() ? widget->isLeftKey(key) : widget->isRightKey(key);
}

WidgetSimpleTitle *addTitleBar(QWidget *screen, const QString &title, const QString &icon, const QString &guide)
{
    WidgetSimpleTitle *bar = new WidgetSimpleTitle(screen, SoundManager::getInstance());
    // The toolkit paints the background of a style sheet on a widget of ours only where this is set.
    bar->setAttribute(Qt::WA_StyledBackground);
    QRect titlePlace = TitlePlace;
    if (!guide.isEmpty()) {
        titlePlace.setRight(GuidePlace.left() - 1 - GapBeforeGuide);
        addPicture(bar, placeForWriting(GuidePlace, Device::Width), guide);
    }
    placeTitle(bar, titlePlace);
    bar->setFontStyle(WidgetSimpleTitle::ItemTitle, TitlePointSize, true, QString());
    bar->setTitle(title);
    addPicture(bar, placeForWriting(TitleIconPlace, Device::Width), icon);
    return bar;
}

void placeTitle(WidgetSimpleTitle *bar, const QRect &place)
{
    const QRect placed = placeForWriting(place, Device::Width);
    bar->setItemGeometry(WidgetSimpleTitle::ItemTitle, placed.x(), placed.y(), placed.width(), placed.height());
}

QLabel *addPicture(QWidget *parent, const QRect &place, const QString &name)
{
    QLabel *picture = new QLabel(parent);
    picture->setGeometry(place);
    picture->setStyleSheet(pictureSheet(name));
    return picture;
}

QLabel *addLabel(QWidget *parent, const QRect &place, int pointSize, bool bold, const QString &color)
{
    QLabel *label = new QLabel(parent);
    label->setGeometry(place);
    label->setStyleSheet(QStringLiteral("color: %1;").arg(color));
    QFont font;
    font.setPointSize(pointSize);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

std::vector<TextLine> linesOf(const QString &text, const QFont &font, int width)
{
    std::vector<TextLine> lines;
    QTextLayout layout(text, font);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.push_back({line.textStart(), text.mid(line.textStart(), line.textLength()).trimmed()});
    }
    layout.endLayout();
    return lines;
}

QString brokenIntoLines(const QString &text, const QFont &font, int width)
{
    QStringList lines;
    for (const TextLine &line : linesOf(text, font, width))
        lines += line.text;
    return lines.join(QLatin1Char('\n'));
}

void showElided(QLabel *label, const QString &text)
{
    label->setText(label->fontMetrics().elidedText(text, Qt::ElideRight, label->width()));
}
