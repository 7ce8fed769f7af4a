// Helpers that kernels share; see imaging/kernel_levels.h.
namespace {
namespace KERNEL_LEVEL {

template <class V, class T>
KERNEL_INLINE void Load(V& vector, const T* from) {
    __builtin_memcpy(&vector, from, sizeof(vector));
}

template <class V, class T>
KERNEL_INLINE void Store(const V& vector, T* to) {
    __builtin_memcpy(to, &vector, sizeof(vector));
}

// Every lane takes the value of the one below it, and the lowest takes `first`.
template <class V, class T, int... I>
KERNEL_INLINE void ShiftLanes(V& vector, T first, std::integer_sequence<int, I...>) {
    const V in = first - V{};
    vector = __builtin_shufflevector(in, vector, (static_cast<int>(sizeof...(I)) - 1 + I)...);
}

// A key per pixel: its distance from entry `e` of a palette, shifted left by four, with `e` in the
// low bits. The least key belongs to the nearest entry, and to the first of equally near ones. Keys
// need 24 bits.
template <class U>
KERNEL_INLINE void PaletteKey(U& key, const DitherPalette& palette, int e, const U& blue,
                              const U& green, const U& red) {
    const U dr = palette.red[e] - red;
    const U dg = palette.green[e] - green;
    const U db = palette.blue[e] - blue;
    const U mean = (palette.red[e] + red) >> 1;
    const U distance =
        (((512 + mean) * (dr * dr)) >> 8) + ((dg * dg) << 2) + (((767 - mean) * (db * db)) >> 8);
    key = (distance << 4) | static_cast<uint32_t>(e);
}

} // namespace KERNEL_LEVEL
} // namespace
