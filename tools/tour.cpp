#include "tools/commands.h"
void vor::tool::add_tour(CLI::App&) {}
