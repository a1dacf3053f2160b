#include "platform/stringrc.h"

StringRC *StringRC::getInstance()
{
    static StringRC resources = {false};
    return &resources;
}
