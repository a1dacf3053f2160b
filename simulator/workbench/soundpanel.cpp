#include "soundpanel.h"

#include "platform/desktop/desktopsound.h"

#include <QCheckBox>
#include <QListWidget>
#include <QTime>
#include <QVBoxLayout>

namespace {

const int MostSounds = 200;

const int KeyClick = 901;
const int Refusal = 872;
const int FirstDigit = 920;
const int LastDigit = 929;

QString nameOf(int id)
{
    if (id == KeyClick)
        return QStringLiteral("key click");
    if (id == Refusal)
        return QStringLiteral("low click");
    if (id >= FirstDigit && id <= LastDigit)
        return QStringLiteral("digit %1").arg(id - FirstDigit);
    return QStringLiteral("unknown");
}

}

SoundPanel::SoundPanel(QWidget *parent)
    : QWidget(parent),
      m_mute(new QCheckBox(QStringLiteral("Mute"), this)),
      m_sounds(new QListWidget(this))
{
    m_mute->setToolTip(QStringLiteral("Keep this PC silent; sounds are listed all the same"));
    connect(m_mute, &QCheckBox::toggled, this, [this](bool muted) {
        Desktop::setMuted(muted);
        emit mutedChanged(muted);
    });
    m_sounds->setSelectionMode(QAbstractItemView::NoSelection);

    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addWidget(m_mute);
    layout->addWidget(m_sounds, 1);

    m_mute->setChecked(Desktop::isMuted());
    Desktop::setSoundListener([this](int id) {
        QMetaObject::invokeMethod(this, [=] { add(id); }, Qt::QueuedConnection);
    });
}

SoundPanel::~SoundPanel()
{
    Desktop::setSoundListener({});
}

void SoundPanel::setMuted(bool muted)
{
    m_mute->setChecked(muted);
}

void SoundPanel::add(int id)
{
    m_sounds->insertItem(0, QStringLiteral("%1  %2  %3")
                                .arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"))).arg(id).arg(nameOf(id)));
    delete m_sounds->item(MostSounds);
}
