"""A test that is a program of its own: how it fails, is skipped, and says so."""

SKIPPED = 77  # the exit code by which ctest knows that a test could not run


class Failure(Exception):
    """The test failed, and why."""


class Skip(Exception):
    """The test cannot run here, and why."""


def exit_code_of(test):
    """Runs the test, prints what it has to say, and gives the program's exit code."""
    try:
        test()
    except Skip as skip:
        print(skip)
        return SKIPPED
    except Failure as failure:
        print(failure)
        return 1
    return 0
