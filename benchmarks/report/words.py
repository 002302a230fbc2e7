"""Random words and prose that depend only on a seed."""

import math
import random

PROSE = {
    "en": """
    the of value returns signal a for each number and input row column with filter of to specified
    sampling rate array name option display text create estimate vector measure from in window
    segment length""".split(),
    "de": """
    der die Länge gibt Größe ein für jede Anzahl und Eingabe Zeile Spalte mit Filter Übertragung
    zurück Wert angegeben Signal Feld Name Auswahl anzeigen Text erzeugt schätzt Vektor misst aus
    Fenster Abschnitt Schlüssel""".split(),
    "ru": """
    значение возвращает сигнал для каждого число и вход строка на столбец фильтр заданный частота
    массив имя выбор текст создаёт оценка вектор измеряет из в окно длина отрезок с""".split(),
    "ja": """
    信号 の 値 を 返します 入力 行 列 と フィルター 指定 された サンプル レート 配列 名前 オプション 表示 テキスト 作成 推定 ベクトル 測定 から に 窓 区間 長さ する
    は""".split(),
}
PARTS = """
    signal rate window branch height index frame level count color axis sample model noise filter
    buffer scale tree graft set get fit plot read write phase""".split()
FIRST_NAMES = """
    amber birch copper delta ember fern garnet harbor iron jade kelp lumen maple north ocean pearl
    quartz river slate timber ultra velvet willow xenon yarrow zephyr alpine basalt cedar dune
    echo flint glacier hazel indigo juniper kite laurel mesa nova""".split()
LAST_NAMES = """
    bridge wave field grid mill port sound track vault works yard beam craft drive engine forge
    gate house image joint kernel link motor net optics path query robot scope tools units vision
    weaver matrix labs stream tables logic maps radar""".split()


class Random:
    """Draws everything from random(), the one sequence that Python guarantees to keep."""

    def __init__(self, seed):
        self._fraction = random.Random(seed).random

    def chance(self, probability):
        return self._fraction() < probability

    def below(self, count):
        return int(self._fraction() * count)

    def pick(self, words):
        return words[self.below(len(words))]

    def count(self, mean):
        """A geometrically distributed count."""
        return int(math.log(1 - self._fraction()) / math.log(mean / (1 + mean)))

    def log_normal(self, mean, spread):
        radius = math.sqrt(-2 * math.log(1 - self._fraction()))
        normal = radius * math.cos(math.tau * self._fraction())
        return mean * math.exp(spread * normal - spread ** 2 / 2)

    def identifier(self, words):
        """An identifier of this many words in camel case, such as "branchHeight"."""
        first, *others = [self.pick(PARTS) for _ in range(words)]
        return first + "".join(map(str.capitalize, others))

    def prose(self, language, size):
        """Prose of about this many bytes; some has a quotation mark, a symbol or a line end."""
        separator = "" if language == "ja" else " "
        words = []
        while size > 0:
            words.append(self.pick(PROSE[language]))
            size -= len((words[-1] + separator).encode())
        words += [extra for extra, probability in (('"auto"', 0.03), ("2 × 3", 0.02), ("\n", 0.01))
                  if self.chance(probability)]
        return separator.join(words)

    def long_prose(self, language, mean_size):
        """Prose of random length, with a long upper tail."""
        return self.prose(language, mean_size * (0.4 + 1.8 * self._fraction() ** 2))


def product_name(index):
    """A name such as "copperbridge", different for each index below 1600."""
    count = len(FIRST_NAMES)
    # Neighbours differ in both halves, as the names of real products do.
    return FIRST_NAMES[index % count] + LAST_NAMES[(index // count + index) % count]
