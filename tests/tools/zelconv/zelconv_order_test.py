"""--sort."""

import unittest

from zelconv_support import ZelconvCase, archive, extern


class HouseOrder(ZelconvCase):
    def sorted_texts(self, texts, kind="string"):
        """The order into which `texts` come, by their positions."""
        columns = [("Text", kind), ("Position", "long")]
        rows = [[text, position] for position, text in enumerate(texts)]
        out = self.convert("extern", "csv", None, extern(columns, rows), "--sort", "Text",
                           "--header", "no").decode("utf-8")
        return [int(line.rsplit(";", 1)[1]) for line in out.splitlines()]

    def test_texts(self):
        # Symbols, then the blank, digits, letters; accented letters behind their base letter, no
        # matter what follows; a shorter text before the longer one that begins with it.
        expected = [None, "", "-", " ", "0", "9", "A", "Az", "Ä", "Äa", "B", "O", "Oz", "Ö", "P",
                    "S", "St", "U", "Ü", "Z", "Zz"]
        for rotation in range(len(expected)):
            texts = expected[rotation:] + expected[:rotation]
            with self.subTest(rotation=rotation):
                order = self.sorted_texts(texts)
                self.assertEqual([texts[position] for position in order], expected)

    def test_what_weighs_the_same_keeps_its_order(self):
        # Case does not weigh, and the sharp s weighs as s.
        self.assertEqual(self.sorted_texts(["MÜLLER", "müller", "Müller", "Maß", "MAS", "Mas"]),
                         [3, 4, 5, 0, 1, 2])
        self.assertEqual(self.sorted_texts(["b", None, "a", None, "B", "A"]), [1, 3, 2, 5, 0, 4])

    def test_numbers(self):
        self.assertEqual(self.sorted_texts([100, 20, None, -5, 3, 20, -2147483648], "long"),
                         [2, 6, 3, 4, 1, 5, 0])

    def test_every_target(self):
        columns = [("N", "string")]
        rows = [["Zorn"], ["Ärger"], ["Abend"]]
        ordered = [["Abend"], ["Ärger"], ["Zorn"]]
        content = "N\nZorn\nÄrger\nAbend\n"
        self.assertEqual(self.convert("csv", "archive", "N:string", content, "--sort", "N"),
                         archive(columns, ordered))
        self.assertEqual(self.convert("csv", "extern", "N:string", content, "--sort", "N"),
                         extern(columns, ordered))
        self.assertEqual(
            self.convert("archive", "display", None, archive(columns, rows), "--sort", "N"),
            "N\n-----\nAbend\nÄrger\nZorn\n".encode())

    def test_unknown_column(self):
        self.convert("csv", "csv", "N:string", "N\n", "--sort", "n", status=2)


if __name__ == "__main__":
    unittest.main()
