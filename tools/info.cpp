#include "tools/commands.h"
void vor::tool::add_info(CLI::App&) {}
