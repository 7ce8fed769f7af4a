#!/usr/bin/env python3
"""Times Pillow's conversion to black and white, for comparison with Dither/.../mono: pictures of
the same sizes and kind, colour to one bit per pixel, the best of several runs."""
import random
import time

from PIL import Image, ImageChops

RUNS = 5
METHODS = [("threshold", Image.Dither.NONE), ("floyd_steinberg", Image.Dither.FLOYDSTEINBERG)]


def picture(width, height):
    """A ramp from top to bottom with noise on it."""
    noise = Image.frombytes("RGB", (width, height),
                            random.Random(1).randbytes(width * height * 3))
    ramp = Image.linear_gradient("L").resize((width, height)).point(lambda v: v * 3 // 4)
    return ImageChops.add(Image.merge("RGB", [ramp] * 3), noise.point(lambda v: v // 4))


def main():
    for height in (2400, 7200):
        image = picture(height * 2 // 3, height)
        size = image.width * image.height * 3
        for name, method in METHODS:
            times = []
            for _ in range(RUNS):
                start = time.perf_counter()
                image.convert("1", dither=method)
                times.append(time.perf_counter() - start)
            case = f"Pillow/{name}/mono/{height}"
            print(f"{case:<40} {min(times) * 1e3:8.3f} ms {size / min(times) / 2**30:12.4f}G/s")


if __name__ == "__main__":
    main()
