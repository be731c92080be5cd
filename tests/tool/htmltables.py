"""The tables of an HTML file, in a form that tables of different programs can be compared in."""
import html.parser
import re


class Cell:
    def __init__(self, attributes):
        self.columns = int(attributes.get('colspan', 1))
        self.rows = int(attributes.get('rowspan', 1))
        self.style = attributes.get('style', '')
        self.text = ''


class Table:
    def __init__(self):
        self.rows = []
        # Of the columns, where they are stated, in one unit for all of them.
        self.widths = []

    def cells(self):
        return [cell for row in self.rows for cell in row]

    def places(self):
        """The cell at each place of the grid, by row and column."""
        places = {}
        for row, cells in enumerate(self.rows):
            column = 0
            for cell in cells:
                while (row, column) in places:
                    column += 1
                for r in range(row, row + cell.rows):
                    for c in range(column, column + cell.columns):
                        places[r, c] = cell
                column += cell.columns
        return places

    def shape(self):
        """The cells of each row at the place where they start, with their spans: "a, b(c2) / c, d, e".

        Where no cell of a table starts, a row or column cannot be seen. Programs keep such rows and columns or
        not, as they like: a column may be left from rows of other widths, a row from cells that are all merged
        with the ones above. So they do not count.
        """
        places = self.places()
        height = 1 + max((row for row, _ in places), default=-1)
        width = 1 + max((column for _, column in places), default=-1)
        grid = [[places.get((row, column)) for column in range(width)] for row in range(height)]
        grid = without_repetitions(grid)
        columns = without_repetitions([list(column) for column in zip(*grid)])
        grid = [list(row) for row in zip(*columns)]
        return ' / '.join(', '.join(row_shape(grid, row)) for row in range(len(grid)))


def without_repetitions(lines):
    return [line for i, line in enumerate(lines) if i == 0 or line != lines[i - 1]]


def row_shape(grid, row):
    for column, cell in enumerate(grid[row]):
        if cell is None:
            yield '(none)'
        elif not (row and grid[row - 1][column] is cell) and not (column and grid[row][column - 1] is cell):
            rows = sum(line[column] is cell for line in grid)
            columns = sum(place is cell for place in grid[row])
            spans = ('r%d' % rows if rows > 1 else '') + ('c%d' % columns if columns > 1 else '')
            yield (' '.join(cell.text.split()) or '-') + ('(%s)' % spans if spans else '')


class Parser(html.parser.HTMLParser):
    """Collects the tables, and the text with each table in braces at its place."""

    def __init__(self):
        super().__init__()
        self.text = ''
        self.tables = []
        self.open = []
        self.skipping = 0

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if tag in ('style', 'title'):
            self.skipping += 1
        elif tag == 'table':
            self.open.append(Table())
            self.tables.append(self.open[-1])
        elif self.open and tag == 'col':
            stated = re.search(r'[\d.]+', attributes.get('width') or attributes.get('style', ''))
            self.open[-1].widths += [float(stated.group())] if stated else []
        elif self.open and tag == 'tr':
            self.open[-1].rows.append([])
        elif self.open and tag in ('td', 'th'):
            self.open[-1].rows[-1].append(Cell(attributes))
        elif tag in ('p', 'br'):
            self.add(' ')

    def handle_endtag(self, tag):
        if tag in ('style', 'title'):
            self.skipping -= 1
        elif tag == 'table':
            self.add(' {%s} ' % self.open.pop().shape())

    def handle_data(self, data):
        if not self.skipping:
            self.add(data)

    def add(self, text):
        if not self.open:
            self.text += text
        elif self.open[-1].rows and self.open[-1].rows[-1]:
            self.open[-1].rows[-1][-1].text += text


def parse(text):
    parser = Parser()
    parser.feed(text)
    parser.close()
    parser.text = re.sub(r'\s+', ' ', parser.text).strip()
    return parser


def parse_file(path):
    with open(path, encoding='utf-8-sig') as file:
        return parse(file.read())
