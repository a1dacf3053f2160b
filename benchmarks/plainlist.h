#ifndef BENCHMARKS_PLAINLIST_H
#define BENCHMARKS_PLAINLIST_H

#include <QWidget>

class ListModel;

/// The settings list in plain widgets: two labels, and a list view with a model and one delegate.
class PlainList : public QWidget
{
public:
    PlainList(ListModel *model, QWidget *parent);
};

#endif
