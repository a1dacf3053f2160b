#include "titlelook.h"

QRect titleIconRect(bool mirrored)
{
    return QRect(mirrored ? 182 : 0, 0, 38, 38);
}

QRect titleTextRect(bool mirrored)
{
    return QRect(mirrored ? 0 : 38, 0, 182, 38);
}

QRect titleInfoRect(bool mirrored)
{
    return QRect(mirrored ? 0 : 152, 0, 68, 13);
}

QString titleIconSheet()
{
    return QString::fromLatin1("padding: %1px;").arg(TitleIconPadding);
}

QString withStyle(const QString &sheet, const QString &style)
{
    return sheet.contains(style, Qt::CaseInsensitive) ? sheet : sheet + style;
}
