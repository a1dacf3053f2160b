#ifndef WORKBENCH_H
#define WORKBENCH_H

#include "devicewindow.h"
#include "player.h"
#include "recorder.h"

#include <QMainWindow>
#include <QSettings>

#include <optional>

class ClockPanel;
class DevicePanel;
class InspectorPanel;
class LogPanel;
class Pointer;
class QAction;
class QToolBar;
class SoundPanel;
class WatchdogPanel;

/// The device among tools: panels that show what goes on in it and switch what is around it, records of keys, pictures.
///
/// The focus stays on the device, whatever is clicked, so that its screens notice nothing of the tools. What is
/// switched and which panels are open is kept for the next time, in the settings of the user.
class Workbench : public QMainWindow
{
    Q_OBJECT

public:
    /// What the user has asked for at the start, in place of what was kept from the last time.
    struct Wishes
    {
        std::optional<KeyMode> keyMode;
        std::optional<bool> rightToLeft;
        std::optional<QString> time;
        std::optional<int> logLevel;
        bool afresh = false;  ///< nothing is taken over from the last time
        bool fullScreen = false;
    };

    Workbench(const Screens &screens, const QString &firstScreen, int zoom, const Wishes &wishes);
    ~Workbench() override;

    DeviceWindow &deviceWindow() { return *m_window; }
    Device &device() { return m_window->device(); }
    Recorder &recorder() { return m_recorder; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void makeDesk();
    void makePanels(const QString &firstScreen);
    void makeTools();
    template <typename Panel>
    Panel *addPanel(const char *name, const QString &hint, Panel *panel);
    QAction *addTool(const char *name, const QString &hint, const QKeySequence &keys = {});
    void takeOver(const Wishes &wishes);
    void keepChanges();
    void keepState();
    void shrink();

    void record(bool on);
    void play(bool on);
    void copyPicture();
    void savePicture();
    QImage picture();
    void tell(const QString &message);

    QSettings m_settings;
    DeviceWindow *m_window;
    Recorder m_recorder;
    Player m_player;
    Pointer *m_pointer;
    QToolBar *m_tools;
    QList<QAction *> m_panelActions;
    QAction *m_record = nullptr;
    QAction *m_play = nullptr;
    QAction *m_withKeys = nullptr;
    DevicePanel *m_devicePanel = nullptr;
    LogPanel *m_logPanel = nullptr;
    SoundPanel *m_soundPanel = nullptr;
    ClockPanel *m_clockPanel = nullptr;
    InspectorPanel *m_inspectorPanel = nullptr;
};

#endif
