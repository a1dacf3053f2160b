// A list of ten thousand rows that are stored nowhere: the model works out what a row says when it comes into view.
//
// 8 and 2 move down and up; held, they run through the list. OK (the menu key of a PC) plays the row. Escape ends the
// program.

#include "platform/soundmanager.h"
#include "widgetlistview.h"

#include <QAbstractListModel>
#include <QApplication>

namespace {

const int TrackCount = 10000;

const char *const adjectives[] = {"Blue", "Slow", "Bright", "Distant", "Silver", "Early", "Quiet"};
const char *const nouns[] = {"Morning", "River", "Highway", "Harbour", "Summer", "Moon", "Garden", "Letter", "Train"};

}

class TrackModel : public QAbstractListModel
{
public:
    virtual int rowCount(const QModelIndex &parent = QModelIndex()) const;
    virtual QVariant data(const QModelIndex &index, int role) const;
};

int TrackModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : TrackCount;
}

QVariant TrackModel::data(const QModelIndex &index, int role) const
{
    const int row = index.row();
    if (role == WidgetListView::TitleRole)
        return QString("%1. %2 %3").arg(row + 1).arg(adjectives[row % 7]).arg(nouns[row % 9]);
    if (role == WidgetListView::ValueRole)
        return QString("%1:%2").arg(2 + row % 5).arg(row * 37 % 60, 2, 10, QChar('0'));
    return QVariant();
}

class TrackList : public WidgetListView
{
    Q_OBJECT

public:
    TrackList();

private Q_SLOTS:
    void play(int row) { setTitle(QString("Track %1 plays").arg(row + 1), true); }

private:
    TrackModel m_tracks;
};

TrackList::TrackList()
    : WidgetListView(0, SoundManager::getInstance())
{
    m_enterOnOK = true;
    m_scrollOnHold = true;
    setTitle(QString("%1 tracks").arg(TrackCount), true);
    setTitleIcon("image: url(:/resource/images_l2/icon_sound.png);");
    setModel(&m_tracks);
    connect(this, SIGNAL(doEnter(int)), this, SLOT(play(int)));
    connect(this, SIGNAL(finished()), this, SLOT(close()));
}

int main(int argc, char **argv)
{
    qputenv("QT_FONT_DPI", "72");  // a point is a pixel, as on the device
    QApplication application(argc, argv);

    TrackList list;
    list.resize(220, 176);
    list.show();
    return application.exec();
}

#include "main.moc"
