"""Fonts and colours that the three documents have in common."""

BODY_FONT = "Calibri"
HEADING_FONT = "Calibri Light"

TEXT = "000000"
BACKGROUND = "FFFFFF"
DARK = "2F3E4E"
LIGHT = "EEF1F4"
ACCENTS = ("2F6FB2", "D9772B", "4C9A5B", "C9A227", "8A5FB0", "3A9CA6")
LINK = "1F5FBF"
VISITED_LINK = "7A4B9A"
