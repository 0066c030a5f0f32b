"""The tables of documents that tools print and write."""


def row(cells):
    return f"| {' | '.join(map(str, cells))} |"


def head(*titles):
    """The two lines that a table begins with."""
    return f"{row(titles)}\n|{'---|' * len(titles)}"


def find(text, beginning):
    """Where the rows begin and end that stand below a head."""
    start = text.index(beginning + "\n") + len(beginning) + 1
    end = start
    while text.startswith("|", end):
        end = text.index("\n", end) + 1
    return start, end


def read(path, beginning):
    """The cells of each row, as text."""
    with open(path, encoding="utf-8") as page:
        text = page.read()
    start, end = find(text, beginning)
    return [[cell.strip() for cell in line.strip("|").split("|")] for line in text[start:end].splitlines()]


def write(path, beginning, rows):
    """Puts these rows in the place of those that are there."""
    with open(path, encoding="utf-8") as page:
        text = page.read()
    start, end = find(text, beginning)
    with open(path, "w", encoding="utf-8") as page:
        page.write(text[:start] + "".join(row(cells) + "\n" for cells in rows) + text[end:])
