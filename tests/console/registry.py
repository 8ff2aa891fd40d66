"""The cases, in the order in which their files define them."""

CASES = []


def case(name):
    def mark(function):
        CASES.append((name, function))
        return function

    return mark
