// The engines of the version inquiry.
#pragma once

#include "vor_service.h"

extern "C" {
void vor_serv_getversion(vor_version* version);
void vor_serv_getversionstring(char* buffer, int length);
void vor_serv_getversionstring_c(char* buffer, int length);
}
