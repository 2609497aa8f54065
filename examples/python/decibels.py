"""A small file to ask a language server about."""
import math


def decibels(ratio: float) -> float:
    """The level of a voltage ratio."""
    return 20 * math.log10(ratio)


level: int = decibels(2.0)
