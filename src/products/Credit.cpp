#include "Credit.h"

#include "ProcessingTime.h"
#include "RevisionInfo.h"
#include "UtcTime.h"

std::string creditText() {
    return "Tarvo " + RevisionInfo().text("REPO_TAG") + ", " + utcText(processingTime(), "%d %b %Y  %H:%M UTC");
}
