"""The known truth of an example: the air the sonde went through, what a reader has to find, and the planted faults.

Times in a truth file count from the launch as a reader has to decide it. For a file with a wrong or no launch line that
is not the moment of release.
"""

import json

PROFILE_POINTS = 80
COLUMNS = ("t", "p", "z", "T", "RH", "u", "v", "lat", "lon")
DECIMALS = (2, 3, 2, 3, 2, 3, 3, 6, 6)


def profile_rows(states, zero):
    stride = max(len(states) // PROFILE_POINTS, 1)
    chosen = states[::stride]
    if chosen[-1] is not states[-1]:
        chosen.append(states[-1])
    rows = []
    for state in chosen:
        values = (state.time - zero, state.pressure, state.z, state.temperature, state.rh, state.u, state.v,
                  state.latitude, state.longitude)
        rows.append([round(value, decimals) for value, decimals in zip(values, DECIMALS)])
    return rows


def shifted(notes, zero):
    result = []
    for note in sorted(notes, key=lambda note: note["time"]):
        note = dict(note)
        for key in ("time", "end"):
            if key in note:
                note[key] = round(note[key] - zero, 2)
        result.append(note)
    return result


def text(truth):
    """JSON with one key a line, and long lists with one entry a line."""
    parts = []
    for key, value in truth.items():
        if key in ("profile", "descent_profile", "faults", "levels", "coded"):
            rows = ",\n".join("    " + json.dumps(row) for row in value)
            parts.append('  "%s": [\n%s\n  ]' % (key, rows) if value else '  "%s": []' % key)
        else:
            parts.append('  "%s": %s' % (key, json.dumps(value)))
    return "{\n" + ",\n".join(parts) + "\n}\n"
