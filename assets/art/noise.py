"""Periodic noise and the small numeric helpers that every painter uses."""
import numpy as np

# 4 x 4 ordered dither, thresholds between 0 and 1
BAYER = np.array([[0, 8, 2, 10], [12, 4, 14, 6], [3, 11, 1, 9], [15, 7, 13, 5]]) / 16.0 + 1 / 32


def periodic_noise(size, seed, slope=2.0, lowest=1, highest=None):
    """Noise on a size x size torus: mean 0, deviation 1, spectrum 1 / frequency^slope.

    lowest and highest bound the frequencies, in cycles across the torus. Because it is made in
    the frequency domain it repeats without a seam.
    """
    random = np.random.RandomState(seed)
    spectrum = np.fft.fft2(random.randn(size, size))
    cycles = np.fft.fftfreq(size) * size
    radius = np.hypot(cycles[:, None], cycles[None, :])
    radius[0, 0] = 1
    gain = radius ** (-slope / 2.0)
    gain[radius < lowest] = 0
    gain[0, 0] = 0
    if highest:
        gain = gain * np.exp(-(radius / highest) ** 2)
    noise = np.fft.ifft2(spectrum * gain).real
    return (noise - noise.mean()) / noise.std()


def smooth_step(low, high, x):
    """0 below low, 1 above high, a smooth S between; low may be the larger one."""
    t = np.clip((x - low) / (high - low), 0, 1)
    return t * t * (3 - 2 * t)


def rgb(red, green, blue):
    """A colour as a float array."""
    return np.array((red, green, blue), float)


def ramp(values, stops):
    """Map values to colours along [(position, colour), ...]; adds a last axis of 3."""
    positions = [position for position, _ in stops]
    return np.stack(
        [np.interp(values, positions, [colour[k] for _, colour in stops]) for k in range(3)], -1)


def tiled_bayer(height, width):
    """The ordered dither matrix laid over a picture of this size."""
    return np.tile(BAYER, (height // 4 + 1, width // 4 + 1))[:height, :width]
