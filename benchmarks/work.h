#ifndef BENCHMARKS_WORK_H
#define BENCHMARKS_WORK_H

#include "screens.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

/// A window in which one kind of work can be done again and again.
class Stage
{
public:
    virtual ~Stage() = default;

    /// Gives the window the focus and brings it back to where the first step begins. Not measured.
    void prepare();

    /// All steps, each to its painted frame where it is work that paints.
    void run();

    /// Does all steps as run() does. Returns whether something was painted after each of them or, for work that is not
    /// to paint, after none.
    bool paintsAsItShould();

    const int steps;
    const bool paints;

protected:
    Stage(int steps, bool paints);

    /// Shows \a screen with the focus.
    void show(QWidget *screen);
    void type(int key);
    void paint();

    QWidget m_window;

private:
    virtual void rewind() = 0;
    virtual void step(int number) = 0;
};

/// A row of the table: work that both makes can do.
struct Work
{
    const char *name;  ///< for the files, without blanks
    const char *title;
    std::function<std::unique_ptr<Stage>(Make make)> newStage;

    /// What the library is to reach: a multiple of what the plain toolkit takes, or microseconds; 0 where there is none.
    double ratioLimit;
    double timeLimit;

    /// The share of the rounds that others get. Work that takes long needs fewer.
    double share;
};

/// What is measured in time, in the order of the table.
std::vector<Work> tableWork();

/// The same work in longer lists, where it must not cost more.
std::vector<Work> growthWork();

/// The heap that a list of \a rows takes once its first frame is painted, in bytes.
double heapOfList(Make make, int rows);

/// The bytes of the heap in use.
double heapInUse();

#endif
