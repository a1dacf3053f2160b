#ifndef TOOLKITSTART_H
#define TOOLKITSTART_H

/// Whether the environment promises a display for windows. Only the toolkit finds out whether it answers.
bool hasDisplay();

/// Prepares the start of the toolkit, which is the QApplication, with windows or for pictures only. \a argv is what
/// main() got.
///
/// Where it cannot open the display, the toolkit ends the process. Instead, what is wrong goes to standard error, and
/// the simulator starts over without a display.
void prepareToolkit(char *argv[], bool windows);

/// To be called when the toolkit has started. Returns only if windows have somewhere to go.
void toolkitHasStarted();

/// Has the toolkit use the plug-ins that were built with the simulator, as the device does.
void addPlugins();

#endif
