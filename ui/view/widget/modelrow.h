#ifndef MODELROW_H
#define MODELROW_H

#include "listlook.h"

#include <QModelIndex>
#include <QString>
#include <QStringList>

/// A row of a WidgetListView as its model describes it at the moment.
struct ModelRow
{
    explicit ModelRow(const QModelIndex &index);

    QString title;
    QString value;       // that is shown
    QStringList values;  // to step through; empty where the application sets the value
    int valueIndex;
    QString badge;
    bool titleDimmed;
    bool valueDimmed;
    RowLook look;

    /// Of the title.
    Qt::Alignment titleAlignment() const;
};

#endif
