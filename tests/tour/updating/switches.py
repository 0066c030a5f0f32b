"""The two switches of the General tab: pressed, and changed by another program."""

from updating.stage import CHECKS, DOWNLOADS, SETTINGS, expect, read_preferences, wait_for, write_preferences

CHECK_SWITCH, DOWNLOAD_SWITCH = "Check for updates automatically", "Download updates automatically"


def stored():
    preferences = read_preferences()
    return preferences.get(CHECKS), preferences.get(DOWNLOADS)


def turn_switches(program):
    """One press writes one value, and neither switch minds the other."""
    expect(stored() == (None, None), "a preference was written before the user decided: %s" % (stored(),))
    for name, then in ((CHECK_SWITCH, (True, None)), (DOWNLOAD_SWITCH, (True, True)), (CHECK_SWITCH, (False, True)),
                       (DOWNLOAD_SWITCH, (False, False)), (DOWNLOAD_SWITCH, (False, True)), (CHECK_SWITCH, (True, True))):
        program.turn(name)
        wait_for("%s, not %s" % (then, stored()), lambda then=then: stored() == then)
        expect(shown(program) == tuple(bool(value) for value in then), "the switches show %s" % (shown(program),))
    program.picture("switches", SETTINGS)


def change_switches_elsewhere(program):
    """Each time the tab comes on the screen it shows what is stored by then, and writes nothing of its own."""
    for checks, downloads in ((False, True), (True, False), (False, False)):
        program.open_dock()
        write_preferences({CHECKS: checks, DOWNLOADS: downloads, "of-another-program": "kept"})
        program.open_general()
        wait_for("switches that show %s" % ((checks, downloads),),
                 lambda both=(checks, downloads): shown(program) == both)
        expect(stored() == (checks, downloads), "showing the tab has written %s" % (stored(),))
    # While it is on the screen, too: a press changes its own value and leaves the other's alone.
    write_preferences({DOWNLOADS: True})
    program.turn(CHECK_SWITCH)
    wait_for("both values", lambda: stored() == (True, True))
    program.open_dock()
    program.open_general()
    wait_for("both switches on", lambda: shown(program) == (True, True))
    expect(read_preferences().get("of-another-program") == "kept", "what is another program's is gone")


def shown(program):
    return program.shows_on(CHECK_SWITCH), program.shows_on(DOWNLOAD_SWITCH)
