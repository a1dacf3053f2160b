#include "rowcalls.h"

#include "widgetlistitem.h"

#include <QLabel>

namespace {

const int MostValues = 5;

QWidget *newLabel(const QString &text, const QString &sheet)
{
    QLabel *label = new QLabel(text);
    label->setStyleSheet(sheet);
    return label;
}

/// The widget value \a index of \a row, where it can be found.
QWidget *valueWidget(WidgetListItem *row, int index)
{
    QList<QLabel *> labels = row->findChildren<QLabel *>(QLatin1String("value"));
    return index >= 0 && index < labels.size() ? labels.at(index) : 0;
}

}

RowCall takeRowCall(Bytes &bytes, bool tame, const QString &sheet)
{
    switch (bytes.below(tame ? 24 : 34)) {
    case 0:
    case 1: {
        const QString text = bytes.text();
        const bool font = bytes.flag() || tame;
        return {"setTitle", [=](WidgetListItem *row) { row->setTitle(text, font); }, true};
    }
    case 2:
    case 3:
    case 4: {
        const QString text = bytes.text();
        return {"addValue", [=](WidgetListItem *row) { row->addValue(text); }, true};
    }
    case 5: return {"removeAllValue", [=](WidgetListItem *row) { row->removeAllValue(); }, true};
    case 6: {
        const int index = bytes.index(MostValues);
        const QString text = bytes.text();
        const bool font = bytes.flag() && !tame;
        return {"replaceValue", [=](WidgetListItem *row) { row->replaceValue(index, text, font); }, true};
    }
    case 7: {
        const int index = bytes.index(MostValues);
        const QString text = bytes.text();
        const bool clear = bytes.flag() && !tame;
        return {"setDisplayValue", [=](WidgetListItem *row) { row->setDisplayValue(index, text, clear); }, true};
    }
    case 8: {
        const int index = bytes.index(MostValues);
        return {"setDisplayValueIndex", [=](WidgetListItem *row) { row->setDisplayValueIndex(index); }, true};
    }
    case 9: {
        const QString text = bytes.text();
        const bool prefix = bytes.flag();
        return {"selectByValue", [=](WidgetListItem *row) { row->selectByValue(text, prefix); }, true};
    }
    case 10: {
        const int from = bytes.index(MostValues), to = bytes.index(MostValues);
        return {"setSelectableRange", [=](WidgetListItem *row) { row->setSelectableRange(from, to); }, true};
    }
    case 11: {
        const bool show = bytes.flag();
        const int number = bytes.index(10);
        return {"setSerialNum", [=](WidgetListItem *row) { row->setSerialNum(show, number); }, true};
    }
    case 12:
    case 13: {
        const bool on = bytes.flag();
        return {"setMoreDepth", [=](WidgetListItem *row) { row->setMoreDepth(on); }, true};
    }
    case 14: {
        const bool on = bytes.flag();
        return {"setValueOnRightSide", [=](WidgetListItem *row) { row->setValueOnRightSide(on); }, true};
    }
    case 15: {
        const bool on = bytes.flag();
        return {"setDeletable", [=](WidgetListItem *row) { row->setDeletable(on); }, true};
    }
    case 16: {
        const bool on = bytes.flag();
        return {"setModifiable", [=](WidgetListItem *row) { row->setModifiable(on); }, true};
    }
    case 17: {
        const bool on = bytes.flag();
        return {"m_enterOnOK", [=](WidgetListItem *row) { row->m_enterOnOK = on; }, true};
    }
    case 18: {
        const bool on = bytes.flag();
        return {"m_noShortcut", [=](WidgetListItem *row) { row->m_noShortcut = on; }, true};
    }
    case 19: {
        const bool on = bytes.flag();
        return {"m_useFunctionKeys", [=](WidgetListItem *row) { row->m_useFunctionKeys = on; }, true};
    }
    case 20:
        return {"backup, isModified", [=](WidgetListItem *row) {
                    row->backup();
                    row->isModified();
                    row->getDisplayValue();
                }, false};
    case 21: return {"refresh", [=](WidgetListItem *row) { row->refresh(); }, false};
    case 22:
        return {"updateTitle, updateValue", [=](WidgetListItem *row) {
                    row->updateTitle();
                    row->updateValue();
                    row->updateArrows();
                }, false};
    case 23: return {"selectByShortcut", [=](WidgetListItem *row) { row->selectByShortcut(); }, false};

    // What follows mixes texts with widgets.
    case 24: return {"setTitle, null", [=](WidgetListItem *row) { row->setTitle(static_cast<QWidget *>(0)); }, true};
    case 25: return {"addValue, null", [=](WidgetListItem *row) { row->addValue(static_cast<QWidget *>(0)); }, true};
    case 26: {
        const int index = bytes.index(MostValues);
        return {"insertValue, null", [=](WidgetListItem *row) { row->insertValue(index, 0); }, true};
    }
    case 27: {
        const QString text = bytes.text();
        return {"setTitle, widget", [=](WidgetListItem *row) { row->setTitle(newLabel(text, sheet)); }, true};
    }
    case 28:
    case 29: {
        const QString text = bytes.text();
        return {"addValue, widget", [=](WidgetListItem *row) {
                    QWidget *label = newLabel(text, sheet);
                    label->setObjectName(QLatin1String("value"));
                    row->addValue(label);
                }, true};
    }
    case 30: {
        const int index = bytes.index(MostValues);
        const QString text = bytes.text();
        return {"insertValue", [=](WidgetListItem *row) {
                    QWidget *label = newLabel(text, sheet);
                    label->setObjectName(QLatin1String("value"));
                    row->insertValue(index, label);
                    // A row that rejects it leaves it to whom it belongs.
                    if (!label->parent())
                        delete label;
                }, true};
    }
    case 31: {
        const int index = bytes.index(MostValues);
        return {"removeValue", [=](WidgetListItem *row) { row->removeValue(index); }, true};
    }
    case 32: {
        const int index = bytes.index(MostValues);
        return {"delete a value's widget", [=](WidgetListItem *row) { delete valueWidget(row, index); }, false};
    }
    default: {
        const bool on = bytes.flag();
        return {"m_marquee", [=](WidgetListItem *row) { row->m_marquee = on; }, true};
    }
    }
}

void layOutAnew(WidgetListItem *row, int value, bool onOneLine)
{
    row->setDisplayValueIndex(value);
    row->setValueOnRightSide(true);
    row->refresh();
    row->setValueOnRightSide(onOneLine);
    row->refresh();
    row->refresh();
}
