#include "workbench.h"

#include "clockpanel.h"
#include "devicepanel.h"
#include "inspectorpanel.h"
#include "logpanel.h"
#include "picturefile.h"
#include "pointer.h"
#include "soundpanel.h"
#include "watchdogpanel.h"

#include "platform/desktop/desktoplog.h"
#include "platform/stringrc.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QStatusBar>
#include <QToolBar>

namespace {

const int PanelWidth = 360;
const int MessageTime = 8000;

// Settings.
const QString KeepGeometry = QStringLiteral("window/geometry");
const QString KeepPanels = QStringLiteral("window/panels");
const QString KeepKeyMode = QStringLiteral("device/functionKeys");
const QString KeepRightToLeft = QStringLiteral("device/rightToLeft");
const QString KeepLogLevel = QStringLiteral("log/level");
const QString KeepLogText = QStringLiteral("log/text");
const QString KeepMuted = QStringLiteral("sound/muted");
const QString KeepChipWorking = QStringLiteral("clock/chipWorking");
const QString KeepTime = QStringLiteral("clock/time");
const QString KeepWithKeys = QStringLiteral("pictures/withKeys");

QString askForNewFile(Workbench *parent, const QString &title, const QString &suggestion, const QString &filter = {})
{
    const QString name = QFileDialog::getSaveFileName(parent, title, suggestion, filter);
    // Where nothing else does it.
    parent->deviceWindow().showActive();
    return name;
}

/// Leaves the focus where it is when \a widget or something in it is clicked.
void keepFocusAway(QWidget *widget)
{
    widget->setFocusPolicy(Qt::NoFocus);
    const QList<QWidget *> widgets = widget->findChildren<QWidget *>();
    for (QWidget *child : widgets)
        child->setFocusPolicy(Qt::NoFocus);
}

}

Workbench::Workbench(const Screens &screens, const QString &firstScreen, int zoom, const Wishes &wishes)
    : m_settings(QStringLiteral("libwidget"), QStringLiteral("simulator")),
      m_window(new DeviceWindow(screens, KeyMode::Digits, zoom)),
      m_recorder(m_window->device()),
      m_player(m_window->device()),
      m_tools(new QToolBar(QStringLiteral("Tools"), this))
{
    setWindowTitle(m_window->windowTitle());
    setWindowIcon(m_window->windowIcon());
    setContextMenuPolicy(Qt::NoContextMenu);
    setDockOptions({});
    statusBar()->setSizeGripEnabled(false);
    QLabel *hint = new QLabel(QStringLiteral("The PC's keyboard works the device, whatever is clicked"));
    hint->setContentsMargins(0, 0, 6, 0);
    statusBar()->addPermanentWidget(hint);

    makeDesk();
    makePanels(firstScreen);
    makeTools();
    takeOver(wishes);
    keepChanges();
}

Workbench::~Workbench()
{
    // What is closed from here on was open.
    const QList<QDockWidget *> docks = findChildren<QDockWidget *>();
    for (QDockWidget *dock : docks) {
        dock->blockSignals(true);
        delete dock;
    }
}

void Workbench::makeDesk()
{
    QWidget *desk = new QWidget(this);
    QGridLayout *layout = new QGridLayout(desk);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_window, 0, 0, Qt::AlignCenter);
    setCentralWidget(desk);

    m_pointer = new Pointer(*m_window, desk);
}

template <typename Panel>
Panel *Workbench::addPanel(const char *name, const QString &hint, Panel *panel)
{
    QDockWidget *dock = new QDockWidget(QString::fromLatin1(name), this);
    dock->setObjectName(QString::fromLatin1(name));
    dock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    dock->setWidget(panel);
    panel->setMinimumWidth(PanelWidth);
    keepFocusAway(dock);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->hide();

    QAction *action = dock->toggleViewAction();
    action->setToolTip(hint);
    m_panelActions += action;
    // After the layout has noticed.
    connect(action, &QAction::triggered, this, [this] { QTimer::singleShot(0, this, &Workbench::shrink); });
    connect(dock, &QDockWidget::visibilityChanged, this, &Workbench::keepState);
    return panel;
}

void Workbench::makePanels(const QString &firstScreen)
{
    m_devicePanel = addPanel("Device", QStringLiteral("Direction keys, writing direction and the first screen"),
                             new DevicePanel(device(), firstScreen));
    m_logPanel = addPanel("Log", QStringLiteral("What the device logs"), new LogPanel);
    m_soundPanel = addPanel("Sounds", QStringLiteral("What the device plays"), new SoundPanel);
    addPanel("Watchdog", QStringLiteral("The threads that the watchdog watches"), new WatchdogPanel);
    m_clockPanel = addPanel("Clock", QStringLiteral("The clock chip and the local time"), new ClockPanel);
    m_inspectorPanel = addPanel("Inspector", QStringLiteral("Point at a widget to see what it is made of"),
                                new InspectorPanel(device()));

    connect(m_pointer, &Pointer::pointed, m_inspectorPanel, &InspectorPanel::setWidget);
    connect(m_inspectorPanel, &InspectorPanel::widgetChanged, m_pointer, &Pointer::frame);
    connect(static_cast<QDockWidget *>(m_inspectorPanel->parentWidget()), &QDockWidget::visibilityChanged, m_pointer,
            &QWidget::setVisible);
}

QAction *Workbench::addTool(const char *name, const QString &hint, const QKeySequence &keys)
{
    QAction *action = m_tools->addAction(QString::fromLatin1(name));
    action->setShortcut(keys);
    action->setToolTip(keys.isEmpty() ? hint
                                      : QStringLiteral("%1 (%2)").arg(hint, keys.toString(QKeySequence::NativeText)));
    return action;
}

void Workbench::makeTools()
{
    m_tools->setObjectName(QStringLiteral("Tools"));
    m_tools->setMovable(false);
    addToolBar(m_tools);

    QAction *restart = addTool("Restart", QStringLiteral("Start the device anew"), Qt::CTRL | Qt::Key_N);
    connect(restart, &QAction::triggered, m_devicePanel, &DevicePanel::restart);
    m_tools->addSeparator();

    m_record = addTool("Record", QStringLiteral("Start the device anew, and record the keys to a file"),
                       Qt::CTRL | Qt::Key_R);
    m_record->setCheckable(true);
    connect(m_record, &QAction::triggered, this, &Workbench::record);
    connect(&m_recorder, &Recorder::recordingChanged, m_record, &QAction::setChecked);
    m_play = addTool("Play", QStringLiteral("Start the device anew, and work the keys in a file"), Qt::CTRL | Qt::Key_P);
    m_play->setCheckable(true);
    connect(m_play, &QAction::triggered, this, &Workbench::play);
    connect(&m_player, &Player::finished, m_play, [this] { m_play->setChecked(false); });
    m_tools->addSeparator();

    QAction *copy = addTool("Copy picture", QStringLiteral("Copy a picture of the display"), Qt::CTRL | Qt::Key_C);
    connect(copy, &QAction::triggered, this, &Workbench::copyPicture);
    QAction *save = addTool("Save picture", QStringLiteral("Write a picture of the display to a file"),
                            Qt::CTRL | Qt::Key_S);
    connect(save, &QAction::triggered, this, &Workbench::savePicture);
    m_withKeys = addTool("With keys", QStringLiteral("Have the whole device in pictures, not the display only"));
    m_withKeys->setCheckable(true);

    QWidget *gap = new QWidget;
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_tools->addWidget(gap);
    for (int i = 0; i < m_panelActions.size(); ++i) {
        QAction *action = m_panelActions[i];
        action->setShortcut(Qt::CTRL | Qt::Key(Qt::Key_1 + i));
        action->setToolTip(QStringLiteral("%1 (%2)").arg(action->toolTip(),
                                                         action->shortcut().toString(QKeySequence::NativeText)));
        m_tools->addAction(action);
    }
    keepFocusAway(m_tools);
}

void Workbench::takeOver(const Wishes &wishes)
{
    if (wishes.afresh)
        m_settings.clear();

    const bool functions = m_settings.value(KeepKeyMode).toBool();
    m_devicePanel->setKeyMode(wishes.keyMode.value_or(functions ? KeyMode::Functions : KeyMode::Digits));
    m_devicePanel->setRightToLeft(wishes.rightToLeft.value_or(m_settings.value(KeepRightToLeft).toBool()));
    bool isLevel = false;
    const int logLevel = m_settings.value(KeepLogLevel).toInt(&isLevel);
    m_logPanel->setLevel(wishes.logLevel.value_or(isLevel ? logLevel : Desktop::logLevel()));
    m_logPanel->setText(m_settings.value(KeepLogText).toString());
    m_soundPanel->setMuted(m_settings.value(KeepMuted).toBool());
    m_clockPanel->setChipWorking(m_settings.value(KeepChipWorking, true).toBool());
    m_clockPanel->setTime(wishes.time.value_or(m_settings.value(KeepTime).toString()));
    m_withKeys->setChecked(m_settings.value(KeepWithKeys).toBool());

    restoreGeometry(m_settings.value(KeepGeometry).toByteArray());
    restoreState(m_settings.value(KeepPanels).toByteArray());
    if (wishes.fullScreen) {
        // Where there is no window manager, nothing but the geometry does it.
        setGeometry(screen()->geometry());
        setWindowState(windowState() | Qt::WindowFullScreen);
    }
}

/// From now on: what the user has asked for at the start is for this time only.
void Workbench::keepChanges()
{
    connect(m_devicePanel, &DevicePanel::keyModeChanged, this,
            [this](KeyMode mode) { m_settings.setValue(KeepKeyMode, mode == KeyMode::Functions); });
    connect(m_devicePanel, &DevicePanel::rightToLeftChanged, this,
            [this](bool rightToLeft) { m_settings.setValue(KeepRightToLeft, rightToLeft); });
    connect(m_logPanel, &LogPanel::levelChanged, this, [this](int level) { m_settings.setValue(KeepLogLevel, level); });
    connect(m_logPanel, &LogPanel::textChanged, this,
            [this](const QString &text) { m_settings.setValue(KeepLogText, text); });
    connect(m_soundPanel, &SoundPanel::mutedChanged, this,
            [this](bool muted) { m_settings.setValue(KeepMuted, muted); });
    connect(m_clockPanel, &ClockPanel::chipWorkingChanged, this,
            [this](bool working) { m_settings.setValue(KeepChipWorking, working); });
    connect(m_clockPanel, &ClockPanel::timeChanged, this,
            [this](const QString &time) { m_settings.setValue(KeepTime, time); });
    connect(m_withKeys, &QAction::toggled, this, [this](bool on) { m_settings.setValue(KeepWithKeys, on); });
}

void Workbench::keepState()
{
    if (!isVisible())
        return;
    if (!isFullScreen())
        m_settings.setValue(KeepGeometry, saveGeometry());
    m_settings.setValue(KeepPanels, saveState());
}

/// Gives back the room of panels that are closed.
void Workbench::shrink()
{
    for (const QAction *action : std::as_const(m_panelActions)) {
        if (action->isChecked())
            return;
    }
    if (!isMaximized() && !isFullScreen())
        resize(minimumSizeHint());
}

void Workbench::closeEvent(QCloseEvent *event)
{
    keepState();
    QMainWindow::closeEvent(event);
}

void Workbench::record(bool on)
{
    if (!on) {
        const QString name = m_recorder.fileName();
        const QString error = m_recorder.stop();
        return tell(error.isEmpty() ? QStringLiteral("The keys are in %1").arg(name)
                                    : QStringLiteral("The keys could not be written: %1").arg(error));
    }
    const QString name = askForNewFile(this, QStringLiteral("Record the keys to"), QStringLiteral("keys.txt"));
    m_record->setChecked(!name.isEmpty());
    if (name.isEmpty())
        return;
    m_devicePanel->restart();
    const QString error = m_recorder.start(name, titleOfRecord(name, m_devicePanel->firstScreen(), device().keyMode(),
                                                               StringRC::getInstance()->m_rightToLeft));
    m_record->setChecked(error.isEmpty());
    tell(error.isEmpty() ? QStringLiteral("Recording to %1").arg(name)
                         : QStringLiteral("%1 cannot be written: %2").arg(name, error));
}

void Workbench::play(bool on)
{
    if (!on)
        return m_player.stop();
    const QString name = QFileDialog::getOpenFileName(this, QStringLiteral("Work the keys in"));
    m_window->showActive();
    QString error;
    const Script script = name.isEmpty() ? Script() : readScript(name, &error);
    m_play->setChecked(!script.empty() && error.isEmpty());
    if (!error.isEmpty())
        return tell(error);
    if (script.empty())
        return;
    m_devicePanel->restart();
    m_player.start(script);
}

QImage Workbench::picture()
{
    return m_withKeys->isChecked() ? m_window->picture() : device().picture(m_window->zoom());
}

void Workbench::copyPicture()
{
    QGuiApplication::clipboard()->setImage(picture());
    tell(QStringLiteral("The picture can be pasted"));
}

void Workbench::savePicture()
{
    // As it was when the button was pressed.
    const QImage image = picture();
    QString name = askForNewFile(this, QStringLiteral("Write the picture to"), QStringLiteral("display.png"),
                                 QStringLiteral("Pictures (*.png)"));
    if (name.isEmpty())
        return;
    if (!name.endsWith(QLatin1String(".png"), Qt::CaseInsensitive))
        name += QLatin1String(".png");
    const QString error = writePicture(image, name);
    tell(error.isEmpty() ? QStringLiteral("The picture is in %1").arg(name)
                         : QStringLiteral("%1 cannot be written: %2").arg(name, error));
}

void Workbench::tell(const QString &message)
{
    statusBar()->showMessage(message, MessageTime);
}
