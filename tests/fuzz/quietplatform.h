#ifndef FUZZ_QUIETPLATFORM_H
#define FUZZ_QUIETPLATFORM_H

/// The platform of the fuzz targets: it keeps nothing, and answers with what the target has set.
namespace QuietPlatform {

void reset();
void setRightToLeft(bool rightToLeft);

/// The local time from now on.
void setTime(int hour, int minute, int second, int day, int month, int weekDay);
void setTick(unsigned int tick);
void setClockChipWorks(bool works);

/// How many sounds were played since reset().
int soundCount();

}

#endif
