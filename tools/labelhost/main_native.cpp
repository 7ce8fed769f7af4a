#include "labelhost.h"

int main(int argc, char** argv) {
    return RunLabelhost(Words(argv + 1, argv + argc));
}
