#pragma once

/// How long, ms, to wait for what comes by itself, however busy the machine.
constexpr int kPatience = 60000;

/// A limit of time, ms, for a machine that does other work too. What watches memory takes many times as long.
constexpr int timeLimit(int milliseconds) {
#if defined(__SANITIZE_ADDRESS__)
    return milliseconds * 10;
#else
    return milliseconds;
#endif
}
