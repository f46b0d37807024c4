#include "desktop/AccountHome.h"
#include "desktop/OwnDesktop.h"

#include <benchmark/benchmark.h>

#include <vector>

/// The application is measured on a desktop of its own.
int main(int argumentCount, char** arguments) {
    if (!blankwell::isOnOwnDesktop()) {
        blankwell::runOnOwnDesktop({arguments + 1, arguments + argumentCount});
        return 125;
    }
    blankwell::moveAccountHome();
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
