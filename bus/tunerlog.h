#pragma once

#include "hostlog.h"

// The tuner warns in the head unit's format, "[WAR] <thread> <function>
// <line> -- <values and text>", so a field log can be grepped by level and
// traced back to the line that wrote it.
#define TUNER_WAR() HOST_WAR()
