"""--charset and --output-charset, against the code pages that Python knows."""

import unittest

from zelconv_support import ZelconvCase, extern

CODECS = {"1252": "cp1252", "850": "cp850", "437": "cp437"}
NOT_IN_ANSI = 108
NOT_IN_OUTPUT = 109
MALFORMED = 107


def ansi_character(byte):
    """The five open bytes of code page 1252 stand for control characters, as on Windows."""
    try:
        return bytes([byte]).decode("cp1252")
    except UnicodeDecodeError:
        return chr(byte)


ANSI = {ansi_character(byte): byte for byte in range(256)}


def characters_of(charset):
    """{byte: character} from 80 hexadecimal on."""
    if charset == "1252":
        return {byte: ansi_character(byte) for byte in range(0x80, 0x100)}
    return {byte: bytes([byte]).decode(CODECS[charset]) for byte in range(0x80, 0x100)}


class EveryByte(ZelconvCase):
    def test_from_each_charset(self):
        for charset in CODECS:
            with self.subTest(charset=charset):
                characters = characters_of(charset)
                content = b"".join(b"%d;" % byte + bytes([byte]) + b"\n" for byte in characters)
                kept = {b: c for b, c in characters.items() if c in ANSI}
                arguments = ("--charset", charset, "--output-charset", "utf8", "--header", "no")
                if len(kept) == len(characters):
                    out = self.convert("csv", "csv", "N:long,C:string", content, *arguments)
                    rejects = []
                else:
                    rejects, out = self.rejects_of("N:long,C:string", content, *arguments)
                self.assertEqual(out.decode("utf-8").split("\n")[:-1],
                                 [f"{b};{c}" for b, c in kept.items()])
                self.assertEqual([(r[1], r[2], r[6]) for r in rejects],
                                 [(b"C", NOT_IN_ANSI, b"%d;" % b + bytes([b]) + b"\n")
                                  for b in characters if b not in kept])

    def test_into_each_charset(self):
        table = [[byte, c] for c, byte in ANSI.items() if byte >= 0x80]
        content = extern([("N", "long"), ("C", "string")], table)
        for charset in CODECS:
            with self.subTest(charset=charset):
                target = {c: b for b, c in characters_of(charset).items()}
                arguments = ("--output-charset", charset, "--header", "no")
                if charset == "1252":
                    out, rejects = self.convert("extern", "csv", None, content, *arguments), []
                else:
                    rejects, out = self.rejects_of(None, content, *arguments, source="extern")
                self.assertEqual(out, b"".join(b"%d;" % byte + bytes([target[c]]) + b"\n"
                                               for byte, c in table if c in target))
                self.assertEqual([(r[1], r[2]) for r in rejects],
                                 [(b"C", NOT_IN_OUTPUT) for _, c in table if c not in target])

    def test_utf8_that_1252_lacks(self):
        characters = ["Ł", "ж", "中", "😀", "\u0100", "\ufeff", "\u2028", "\u0080", "\U0010ffff"]
        rejects, out = self.rejects_of("C:string",
                                       "C\n" + "".join(f"x{c}y\n" for c in characters) + "gut\n")
        self.assertEqual(out, b"C\ngut\n")
        self.assertEqual([(r[0], r[2]) for r in rejects],
                         [(line, NOT_IN_ANSI) for line in range(2, 2 + len(characters))])
        self.assertEqual([r[3].decode("utf-8").rsplit(" ", 1)[1] for r in rejects],
                         [f"U+{ord(c):04X}" for c in characters])

    def test_malformed_utf8(self):
        texts = [b"\x80", b"\xbf", b"\xc3", b"\xc3(", b"\xc0\x80", b"\xc1\xbf", b"\xe0\x80\x80",
                 b"\xe0\x9f\xbf", b"\xed\xa0\x80", b"\xed\xbf\xbf", b"\xf0\x8f\xbf\xbf",
                 b"\xf4\x90\x80\x80", b"\xf5\x80\x80\x80", b"\xff", b"\xe2\x82", b"\xfc",
                 b"\xf0\x9f\x98"]
        rejects, out = self.rejects_of(
            "C:string", b"C\n" + b"".join(b"x" + text + b"\n" for text in texts))
        self.assertEqual(out, b"C\n")
        self.assertEqual([(r[2], r[6]) for r in rejects],
                         [(MALFORMED, b"x" + text + b"\n") for text in texts])


class WholeFiles(ZelconvCase):
    def test_dos_to_utf8_and_back(self):
        text = "Größe;Straße\n1;Müller, Jörg\n2;Éclair ¼ ×\n"
        columns = "Größe:long,Straße:string"
        dos = text.encode("cp850")
        self.assertEqual(self.convert("csv", "csv", columns, dos, "--charset", "850",
                                      "--output-charset", "utf8"), text.encode("utf-8"))
        self.assertEqual(self.convert("csv", "csv", columns, text, "--output-charset", "850"), dos)
        self.assertEqual(self.convert("csv", "csv", columns, dos, "--charset", "850"), dos)

    def test_every_text_form(self):
        stored = self.convert("csv", "archive", "Ä:string", "Ä\nü\n")
        for target, expected in (("sql", 'INSERT INTO T ([Ä]) VALUES ("ü");\n'),
                                 ("extern", "#zelconv-extern 1\tÄ:string\n100:1:ü\n#end\t1\n"),
                                 ("display", "Ä\n-\nü\n")):
            for charset, codec in (("850", "cp850"), ("1252", "cp1252"), ("utf8", "utf-8")):
                with self.subTest(target=target, charset=charset):
                    self.assertEqual(
                        self.convert("archive", target, None, stored, "--charset", charset),
                        expected.encode(codec))

    def test_extern_in_another_charset(self):
        content = "#zelconv-extern 1\tÄ:string\n100:1:ü\n#end\t1\n".encode("cp437")
        self.assertEqual(self.convert("extern", "csv", None, content, "--charset", "437",
                                      "--output-charset", "utf8"), "Ä\nü\n".encode())

    def test_names_that_a_charset_lacks(self):
        # Code page 850 has no euro sign, 1252 no L with stroke.
        for target in ("csv", "extern", "display", "sql"):
            with self.subTest(target=target):
                self.assertEqual(self.convert("csv", target, "€:string", "€\n", "--output-charset",
                                              "850", status=2), b"")
        self.convert("csv", "csv", "Ł:string", "Ł\n", status=2)


if __name__ == "__main__":
    unittest.main()
