"""Wood: grain through the solid, so that it runs on round every edge."""

from kit.paint import Paint


def wood(part, stops, along, boards=None):
    """Grain along x, y or z: long soft streaks and fine pores. `boards`: (axis across them, their width), or each piece
    is a board of its own. Returns the paint, its colour and its height."""
    made = Paint(part)
    stretch = [5.5, 5.5, 5.5]
    stretch["xyz".index(along)] = 0.32
    shift, seams, tone = made.math("MULTIPLY", made.island(), 37.0), None, made.island()
    if boards:
        axis, width = boards
        number = made.math("FLOOR", made.math("DIVIDE", made.axis(axis), width))
        shift = made.math("MULTIPLY", number, 7.3)
        seams = made.groove(made.axis(axis), width, 0.045)
        tone = made.dice(number)
    where = made.node("VectorMath", {0: made.place(*stretch), 1: shift}, operation="ADD")
    streaks = made.noise(where, 1.0, 3.0, 0.55, 0.9)
    fine = made.noise(where, 3.4, 2.0, 0.5, 0.3)
    value = made.math("ADD", made.math("MULTIPLY", streaks, 0.86), made.math("MULTIPLY", fine, 0.14))
    value = made.math("ADD", value, made.math("MULTIPLY", made.math("SUBTRACT", tone, 0.5), 0.16))
    colour = made.ramp(value, *stops)
    height = made.math("ADD", made.math("MULTIPLY", streaks, 0.5), made.math("MULTIPLY", fine, 0.22))
    if seams:
        colour = made.mix(made.math("MULTIPLY", made.math("SUBTRACT", 1.0, seams), 0.62), colour, "#3a1d10")
        height = made.math("ADD", height, made.math("MULTIPLY", seams, 1.1))
    return made, colour, height
