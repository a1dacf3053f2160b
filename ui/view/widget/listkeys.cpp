#include "listkeys.h"

#include "platform/soundmanager.h"
#include "widgetdetails.h"

#include <QKeyEvent>

bool holdsLongEnough(const QKeyEvent *event, bool *longPressed, int *repeatCount, int longPressRepeats)
{
    if (!event->isAutoRepeat()) {
        *longPressed = false;
        return false;
    }
    if (*longPressed || ++*repeatCount <= longPressRepeats)
        return false;
    *longPressed = true;
    *repeatCount = 0;
    // Long presses click also in a list that was given no sound service.
    SoundManager::getInstance()->sndPlay(ClickSound);
    return true;
}

int rowOfPageBeside(int row, int direction, int rowsPerPage, int count, bool *continued, bool *otherContinued)
{
    const qint64 page = rowsPerPage;
    const qint64 target = row + direction * (*continued ? page : 2 * page - 1);
    *otherContinued = false;
    *continued = direction < 0 ? target >= 0 : target < count;
    if (*continued)
        return int(target);
    return direction < 0 ? 0 : count - 1;
}

int valueBeside(int index, int direction, int count)
{
    if (direction < 0 && index <= 0)
        return count - 1;
    if (direction > 0 && index >= count - 1)
        return 0;
    return index + direction;
}
