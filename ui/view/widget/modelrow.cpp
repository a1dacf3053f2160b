#include "modelrow.h"

#include "widgetlistview.h"

#include <QVariant>

ModelRow::ModelRow(const QModelIndex &index)
    : title(index.data(WidgetListView::TitleRole).toString()),
      values(index.data(WidgetListView::ValuesRole).toStringList()),
      valueIndex(0),
      titleDimmed(index.data(WidgetListView::TitleDimmedRole).toBool()),
      valueDimmed(false)
{
    if (!values.isEmpty()) {
        valueIndex = index.data(WidgetListView::ValueIndexRole).toInt();
        value = values.value(valueIndex);
        look.hasValue = true;
    } else {
        const QVariant setValue = index.data(WidgetListView::ValueRole);
        value = setValue.toString();
        look.hasValue = setValue.isValid();
    }
    if (look.hasValue)
        valueDimmed = index.data(WidgetListView::ValueDimmedRole).toBool();
    const QVariant modifiable = index.data(WidgetListView::ModifiableRole);
    look.modifiable = !modifiable.isValid() || modifiable.toBool();
    const int number = index.data(WidgetListView::BadgeRole).toInt(&look.hasBadge);
    look.hasBadge &= number >= 0;
    badge = QString::number(number);
    look.hasSeveralValues = values.size() >= 2;
    look.valueOnRightSide = index.data(WidgetListView::ValueOnRightSideRole).toBool();
    look.moreDepth = index.data(WidgetListView::MoreDepthRole).toBool();
    look.deletable = index.data(WidgetListView::DeletableRole).toBool();
}

Qt::Alignment ModelRow::titleAlignment() const
{
    const bool aboveSetValue = look.hasValue && values.isEmpty() && !look.valueOnRightSide;
    return aboveSetValue ? TitleAlignmentAboveSetValue : TitleAlignment;
}
