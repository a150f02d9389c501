#include "cli/terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "render/text.h"

namespace qvgraph {

namespace {

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool isDumb() {
    const char* terminal = std::getenv("TERM");
    return terminal == nullptr || std::string_view(terminal) == "dumb";
}

}  // namespace

bool usesColour(std::string_view when, int descriptor) {
    if (when != "auto") {
        return when == "always";
    }
    return isatty(descriptor) != 0 && !isSet("NO_COLOR") && !isDumb();
}

void printMessage(const std::string& message) {
    std::cerr << "qvgraph: " << printable(message) << std::endl;
}

Progress::Progress(bool enabled)
    : mEnabled(enabled && isatty(STDERR_FILENO) != 0),
      mNext(Clock::now() + std::chrono::seconds(1)) {}

Progress::~Progress() {
    if (mShown) {
        std::cerr << "\r\033[K" << std::flush;
    }
}

void Progress::show(const char* thing, size_t done, size_t total) {
    if (!mEnabled || Clock::now() < mNext) {
        return;
    }
    std::cerr << "\r\033[Kqvgraph: " << thing << ' ' << done << " of " << total << std::flush;
    mShown = true;
    mNext = Clock::now() + std::chrono::milliseconds(100);
}

}  // namespace qvgraph
