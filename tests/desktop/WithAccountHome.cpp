#include "desktop/AccountHome.h"
#include "desktop/OwnDesktop.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

/// Runs a command on the private desktop, of which the home is the one of the account too. For
/// tests that are no programs of their own.
int main(int argumentCount, char** arguments) {
    if (argumentCount < 2 || !blankwell::isOnOwnDesktop()) {
        std::fputs("usage: with-desktop with-account-home COMMAND [ARGUMENT...]\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        blankwell::moveAccountHome();
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "with-account-home: %s\n", exception.what());
        return EXIT_FAILURE;
    }
    ::execvp(arguments[1], arguments + 1);
    std::perror(arguments[1]);
    return EXIT_FAILURE;
}
