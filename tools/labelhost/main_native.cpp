#include "labelhost.h"

#include <malloc.h>

int main(int argc, char** argv) {
    // Packing and unpacking take some hundred KB for every record of a settings file. Free memory
    // stays with the process, because returning it and taking it again took longer than the
    // packing.
    mallopt(M_TRIM_THRESHOLD, 16 << 20);
    mallopt(M_MMAP_THRESHOLD, 4 << 20);
    return RunLabelhost(Words(argv + 1, argv + argc));
}
