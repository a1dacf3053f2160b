#ifndef WIDGETEXPORT_H
#define WIDGETEXPORT_H

#include <qglobal.h>

/// Marks the classes that libwidget exports; everything else in it stays hidden.
#define WIDGET_EXPORT Q_DECL_EXPORT

#endif
