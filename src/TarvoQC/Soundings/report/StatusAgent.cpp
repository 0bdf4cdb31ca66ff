#include "StatusAgent.h"

void StatusAgent::SetStatus(const std::string& /*text*/) {}

void StatusAgent::AppendStatus(const std::string& /*text*/) {}
