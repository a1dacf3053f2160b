#ifndef FORMLOOK_H
#define FORMLOOK_H

#include <QStringList>

class QWidget;

/// What the classes of forms share.
namespace FormLook {

/// Whether forms are being designed: clocks stand still then, and nothing takes the focus. The plug-in for Designer sets
/// it; false in applications.
extern bool designing;

/// The sheet that shows \a picture of the default pictures.
QString picture(const char *name);

/// Entry \a index of \a list, or an empty text where there is none.
QString entry(const QStringList &list, int index);

/// \a sheet with what tells it from those that a widget was given \a changes times before: title bars add a sheet to the
/// ones they have, unless it is among them already.
QString added(const QString &sheet, int changes);

/// Has the background of the sheet of \a widget painted, also of one that replaces the sheet of its constructor.
void paintBackground(QWidget *widget);

}

#endif
