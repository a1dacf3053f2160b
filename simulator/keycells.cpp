#include "keycells.h"

#include "parts.h"

QString keyCellSheet(const QString &picture, bool lit)
{
    const QString colors = lit ? QStringLiteral("background-color: #f7ce86; color: #1f1618; ")
                               : QStringLiteral("background-color: #6e6464; color: #f8f7f6; ");
    const QString border = QStringLiteral("border: 1px solid #3c3738; ");
    const QString suffix = lit ? QStringLiteral("_focus") : QStringLiteral("_nor");
    return colors + border + (picture.isEmpty() ? QString() : pictureSheet(picture + suffix));
}
