"""Fails on words of the docs, the man pages, the shop's menu entry and the program's own sentences that neither the British
dictionary nor tests/words.txt knows. A line of the list is one word in lower case. A word of it that nobody uses fails too."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LIST = ROOT / "tests" / "words.txt"
PAGES = ["*.md", "docs/**/*.md"]
TROFF = ["packaging/man/*.in"]
MARKED_UP = ["packaging/*.xml.in", "packaging/*.desktop"]
SOURCES = ["src/**/*.h", "src/**/*.cpp"]

WORD = re.compile(r"[^\W\d_]+(?:['’][^\W\d_]+)*")
# What is no prose, wherever it stands: paths, names of files, addresses, switches, places for values.
NAMES = re.compile(r"""https?://\S+ | postgresql://\S+ | \S+@\S+ | --?[a-z][\w-]* | \{[^}]*\} | %[a-z]
                       | [\w.*/<>-]*[/\\][\w.*/<>-]* | \w+(?:\.\w+)+ | \w*_\w+ | \w*\d\w*""", re.X)
LITERAL = re.compile(r'R"\((.*?)\)"|(?<!\')"((?:[^"\\\n]|\\.)*)"(?!\')', re.S)
JOINED = re.compile(r'"\s*\n\s*"')
ESCAPE = re.compile(r"\\(?:x[0-9A-Fa-f]{2}|.)")
SQL = re.compile(r"\b(?:select|insert into|update|delete from|create|alter|drop|pragma|begin|where|values|references)\b.*[=(?*]|"
                 r"\b(?:SELECT|INSERT|UPDATE|DELETE|CREATE|ALTER|DROP|FROM|WHERE|WITH|SET)\b")


def prose_of_page(text):
    text = re.sub(r"^```.*?^```", "", text, flags=re.M | re.S)
    text = re.sub(r"^(?: {4}|\t).*$", "", text, flags=re.M)
    text = re.sub(r"\]\([^)]*\)", "]", re.sub(r"<!--.*?-->", "", text, flags=re.S))
    return re.sub(r"`[^`]*`", " ", text)


def prose_of_man(text):
    lines = (re.sub(r"^\.[A-Za-z]+ ?", "", line) for line in text.splitlines() if not line.startswith((".TH", '.\\"')))
    return re.sub(r"\\f.|\\", "", "\n".join(lines))


def prose_of_markup(text):
    return re.sub(r"<(id|launchable|project_license|metadata_license|binary|image)\b.*?</\1>|<[^>]*>|^\w+(\[\w+\])?=", " ", text,
                  flags=re.S | re.M)


def prose_of_source(text):
    """The sentences among its texts: three words or more, and no statement of a database."""
    text = re.sub(r"^\s*#.*$|(?<!:)//.*$", "", text, flags=re.M)
    for raw, literal in LITERAL.findall(JOINED.sub("", text)):
        sentence = re.sub(r"&(?=\w)", "", raw or ESCAPE.sub(" ", literal))  # without mnemonics
        if not SQL.search(sentence) and len(re.findall(r"(?<!\S)[A-Za-z'’]+(?=[ .,;:!?]|$)", sentence)) >= 3:
            yield sentence


def words_of(prose):
    for word in WORD.findall(NAMES.sub(" ", prose)):
        # Names of code and of files, and what is said in capitals.
        if len(word) > 1 and (word.islower() or word.istitle() or word[0].isupper() and word[1:].islower()):
            yield word.replace("’", "'")


def used_words():
    """Each word, and where it stands."""
    found = {}
    for globs, prose in ((PAGES, prose_of_page), (TROFF, prose_of_man), (MARKED_UP, prose_of_markup),
                         (SOURCES, lambda text: "\n".join(prose_of_source(text)))):
        for path in sorted(path for glob in globs for path in ROOT.glob(glob)):
            for word in words_of(prose(path.read_text(encoding="utf-8"))):
                found.setdefault(word, set()).add(str(path.relative_to(ROOT)))
    return found


def stem(word):
    return re.sub(r"'s?$", "", word)


def unknown_to_dictionary(words):
    """Whatever may own something is known with it."""
    asked = subprocess.run(["hunspell", "-d", "en_GB", "-i", "UTF-8", "-l"], capture_output=True, text=True, check=True,
                           input="".join(f"{each}\n" for word in sorted(words) for each in {word, stem(word)}),
                           encoding="utf-8")
    unknown = set(asked.stdout.split())
    return {word for word in words if word in unknown and stem(word) in unknown}


def main():
    used = used_words()
    unknown = unknown_to_dictionary(used)
    listed = {line.strip() for line in LIST.read_text(encoding="utf-8").splitlines()} - {""}
    listed = {line for line in listed if not line.startswith("#")}
    faults = [f"{', '.join(sorted(used[word])[:3])}: {word}" for word in sorted(unknown, key=str.lower)
              if stem(word.lower()) not in listed]
    idle = listed - {stem(word.lower()) for word in unknown}
    faults += [f"tests/words.txt: nobody uses {word}, or the dictionary knows it" for word in sorted(idle)]
    print("\n".join(faults) if faults else f"all {len(used)} words are spelled as a dictionary or tests/words.txt has them")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
