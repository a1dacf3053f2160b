#include "formlook.h"

#include <QWidget>

bool FormLook::designing = false;

QString FormLook::picture(const char *name)
{
    return QString::fromLatin1("image: url(:/resource/images_l2/%1.png);").arg(QLatin1String(name));
}

QString FormLook::entry(const QStringList &list, int index)
{
    return index >= 0 && index < list.size() ? list.at(index) : QString();
}

QString FormLook::added(const QString &sheet, int changes)
{
    return sheet + QString(changes, QLatin1Char(' '));
}

void FormLook::paintBackground(QWidget *widget)
{
    widget->setAttribute(Qt::WA_StyledBackground);
    // Or the toolkit may stay with the sheet of the constructor, whatever comes before the widget is shown.
    widget->ensurePolished();
}
