#include "listlook.h"

#include "widgetdetails.h"

// As texts, for the sheets.
#define DARK_TEXT "#1F1618"
#define PALE_TEXT "#594B4F"
#define DIMMED_TEXT "#8C8282"
#define ROW "#F8F7F6"
#define SELECTED_ROW "#F7CE86"
#define SCROLL_GROOVE "#a8a1a2"
#define SCROLL_HANDLE "#343232"
#define PICTURES ":/resource/images_l2/"

namespace {

const char MarqueeGap[] = "   ";

// Pixels.
const int TitleOnlyHeight = 46;
const int TextLeft = 9;
const int TextLeftOfBadge = 21;
const int TitleRight = 184;
const int ValueRight = 214;
const int ValueRightBesideArrow = 172;
const int SharedLineBottom = 45;
const int SharedLineTitleLeft = 4;
const int SharedLineTitleWidth = 96;
const int SharedLineValueRight = 211;
const int PrevArrowLeft = 185;
const int NextArrowLeft = 201;
const QSize ArrowSize(6, 10);
const QSize BadgeSize(16, 16);

QRect arrowRect(int left, int rowHeight)
{
    return QRect(QPoint(left, rowHeight / 2 - ArrowSize.height() / 2), ArrowSize);
}

QString sheetOf(const char *declaration, const QString &picture)
{
    return QLatin1String(declaration) + QLatin1String("url(") + picture + QLatin1Char(')');
}

// Of the scroll bar of any table.
QString withScrollBarSheet(const char *sheet)
{
    return QLatin1String(sheet)
        + QString::fromLatin1("QScrollBar:vertical {background: #594b4f;width: %1px;margin: 0 0 0 0;}"
                              "QScrollBar::handle:vertical {background: " SCROLL_HANDLE ";min-height: %2px;}"
                              "QScrollBar:add-line:vertical {width: 0px;height: 0px;}"
                              "QScrollBar:sub-line:vertical {width: 0px;height: 0px;}"
                              "QScrollBar:add-page:vertical {background: " SCROLL_GROOVE ";}"
                              "QScrollBar:sub-page:vertical {background: " SCROLL_GROOVE ";}")
              .arg(ScrollBarWidth)
              .arg(ScrollHandleMinimum);
}

}

RowLook::RowLook()
    : hasBadge(false),
      hasValue(false),
      hasSeveralValues(false),
      valueOnRightSide(false),
      moreDepth(false),
      deletable(false),
      modifiable(true)
{
}

bool RowLook::hasPrevArrow() const
{
    return hasSeveralValues || deletable;
}

bool RowLook::hasNextArrow() const
{
    return hasSeveralValues || moreDepth;
}

int RowLook::seenArrows() const
{
    return modifiable ? int(hasPrevArrow()) + int(hasNextArrow()) : 0;
}

QFont RowLook::titleFont() const
{
    return defaultFont(hasValue && !valueOnRightSide ? 12 : 15, true);
}

QFont RowLook::badgeFont()
{
    return defaultFont(11, true);
}

QFont RowLook::valueFont()
{
    QFont font = defaultFont(14, false);
    font.setWeight(QFont::Normal);
    return font;
}

QRect RowLook::titleRect() const
{
    const int left = hasBadge ? TextLeftOfBadge : TextLeft;
    const int top = hasValue ? UpperLineTop : 0;
    const int height = hasValue ? LineHeight : TitleOnlyHeight;
    return QRect(QPoint(left, top), QPoint(TitleRight, top + height - 1));
}

QRect RowLook::titleRectBesideArrows(QRect titleRect, int seenArrows)
{
    return titleRect.adjusted(0, 0, ArrowSize.width() * (2 - seenArrows), 0);
}

QRect RowLook::valueRect(bool besideArrow) const
{
    const int bottom = hasValue ? LowerLineTop + LineHeight - 1 : LowerLineTop - 1;
    return QRect(QPoint(TextLeft, LowerLineTop), QPoint(besideArrow ? ValueRightBesideArrow : ValueRight, bottom));
}

QRect RowLook::titleRectOnSharedLine(int titleWidth)
{
    const int width = qMin(titleWidth, SharedLineTitleWidth);
    return QRect(QPoint(SharedLineTitleLeft, 0), QPoint(width + SharedLineTitleLeft - 1, SharedLineBottom));
}

QRect RowLook::valueRectOnSharedLine(int titleWidth)
{
    const int left = qMin(titleWidth, SharedLineTitleWidth) + 6;
    return QRect(QPoint(left, 0), QPoint(SharedLineValueRight, SharedLineBottom));
}

QRect RowLook::badgeRect()
{
    return QRect(QPoint(0, 0), BadgeSize);
}

QRect RowLook::prevArrowRect(int rowHeight)
{
    return arrowRect(PrevArrowLeft, rowHeight);
}

QRect RowLook::nextArrowRect(int rowHeight)
{
    return arrowRect(NextArrowLeft, rowHeight);
}

RowDress::RowDress(const char *title, const char *badge, const char *prevArrow, const char *nextArrow)
    : titleColour(QLatin1String(title)),
      badgeColour(QLatin1String("#FFFFFF")),
      // Only the title pales: values keep the dark colour with and without the focus.
      valueColour(QLatin1String(DARK_TEXT)),
      dimmedColour(QLatin1String(DIMMED_TEXT)),
      badgePicture(QLatin1String(badge)),
      prevArrowPicture(QLatin1String(prevArrow)),
      nextArrowPicture(QLatin1String(nextArrow)),
      titleSheet(QLatin1String("color: ") + QLatin1String(title)),
      badgeSheet(sheetOf("color: #FFFFFF; background-image: ", badgePicture)),
      valueSheet(QLatin1String("color: " DARK_TEXT)),
      prevArrowSheet(sheetOf("image: ", prevArrowPicture)),
      nextArrowSheet(sheetOf("image: ", nextArrowPicture))
{
}

const RowDress &rowDress(bool focused)
{
    // Made once for all rows: a label shares the text of its sheet.
    static const RowDress withFocus(DARK_TEXT, PICTURES "number_b_bg.png", PICTURES "arrow_prev_focus.png",
                                    PICTURES "arrow_next_focus.png");
    static const RowDress withoutFocus(PALE_TEXT, PICTURES "number_bg.png", PICTURES "arrow_prev_nor.png",
                                       PICTURES "arrow_next_nor.png");
    return focused ? withFocus : withoutFocus;
}

QString marqueeText(const QString &title)
{
    return title + QLatin1String(MarqueeGap);
}

QColor rowColour()
{
    return QColor(QLatin1String(ROW));
}

QColor selectedRowColour()
{
    return QColor(QLatin1String(SELECTED_ROW));
}

QColor scrollGrooveColour()
{
    return QColor(QLatin1String(SCROLL_GROOVE));
}

QColor scrollHandleColour()
{
    return QColor(QLatin1String(SCROLL_HANDLE));
}

const QString &tableSheet()
{
    static const QString sheet = withScrollBarSheet(
        "QTableWidget {background-color: " ROW ";alternate-background-color: " ROW ";color: " PALE_TEXT ";}"
        "QTableWidget::item:selected {background-color: " SELECTED_ROW ";color: " DARK_TEXT ";border: 0px;}"
        "QTableWidget::item:focus {background-color: " SELECTED_ROW ";color: " DARK_TEXT ";}");
    return sheet;
}

const QString &noFocusTableSheet()
{
    static const QString sheet = withScrollBarSheet(
        "QTableWidget {selection-background-color: transparent;alternate-background-color: " ROW ";}");
    return sheet;
}
