"""The exceptions of the package.

Every failure that the library reports, by a false result or through its environment of callbacks,
becomes one of these. Each also derives from the built-in exception that fits, so that
``except ValueError`` or ``except OSError`` catch them as well.
"""

from __future__ import annotations

from typing import Sequence


class VxkError(Exception):
    """A failure of the library.

    ``messages`` holds the reports that the library gave while the call ran, in its own words
    (English by default; see ``vxk.set_language``). The text of the exception ends with them.
    """

    def __init__(self, text: str, messages: Sequence[str] = ()) -> None:
        self.messages = tuple(messages)
        full = text if not self.messages else f"{text}: " + "; ".join(self.messages)
        super().__init__(full)


class LibraryNotFoundError(VxkError, ImportError):
    """The shared library cannot be found or loaded."""


class DesignationError(VxkError, ValueError):
    """A sheet designation or level value that the library refuses."""


class ProjectionError(VxkError, ValueError):
    """A projection text, or a pair of them, from which the library cannot build a transformation."""


class FileError(VxkError, OSError):
    """A file that the library could not open, read or write."""
