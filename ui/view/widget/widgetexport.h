#ifndef WIDGETEXPORT_H
#define WIDGETEXPORT_H

/// Marks the classes that libwidget exports; everything else in it stays hidden.
///
/// Q_DECL_EXPORT will not do: a toolkit that was itself built without hidden symbols leaves it empty.
#ifdef Q_MOC_RUN
#define WIDGET_EXPORT
#else
#define WIDGET_EXPORT __attribute__((visibility("default")))
#endif

#endif
