#include "gui/signal_emitter.h"

SignalEmitter& SignalEmitter::instance() {
    static SignalEmitter emitter;
    return emitter;
}
