"""Tests of scripts/release: what it makes of a bundle is what updates are taken from."""

import os
import pathlib
import plistlib
import subprocess
import tarfile
import tempfile
import unittest
import xml.etree.ElementTree as tree

SCRIPT = pathlib.Path(os.environ["BLANKWELL_SOURCE"]) / "scripts/release"
ADDRESS = "https://example.org/updates"
SPARKLE = "{http://www.andymatuschak.org/xml-namespaces/sparkle}"


def openssl(*arguments):
    return subprocess.run(["openssl", *arguments], check=True, capture_output=True).stdout


class Release(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.key = self.folder / "key.pem"
        openssl("genpkey", "-algorithm", "ed25519", "-out", self.key)
        self.out = self.folder / "out"

    def public_key(self):
        der = openssl("pkey", "-in", self.key, "-pubout", "-outform", "DER")
        return subprocess.run(["base64"], input=der[-32:], check=True, capture_output=True).stdout.decode().strip()

    def make_bundle(self, version="2", **entries):
        bundle = self.folder / "Blankwell+.app"
        programs = bundle / "Contents" / "Linux"
        programs.mkdir(parents=True, exist_ok=True)
        (programs / "blankwell-plus").write_text("#!/bin/sh\n")
        (programs / "blankwell-plus").chmod(0o755)
        info = {"CFBundleVersion": version, "CFBundleShortVersionString": "1." + version,
                "SUPublicEDKey": self.public_key(), **entries}
        (bundle / "Contents" / "Info.plist").write_bytes(plistlib.dumps(info))
        return bundle

    def release(self, bundle, *more, address=ADDRESS):
        return subprocess.run([SCRIPT, bundle, self.key, address, self.out, *more], capture_output=True, text=True)

    def items(self):
        return tree.parse(self.out / "appcast.xml").getroot().findall("channel/item")

    def test_the_archive_holds_the_bundle_for_everybody(self):
        done = self.release(self.make_bundle())
        self.assertEqual(done.returncode, 0, done.stderr)
        plain = self.folder / "plain.tar"
        subprocess.run(["zstd", "-q", "-d", done.stdout.strip(), "-o", plain], check=True)
        with tarfile.open(plain) as archive:
            members = {member.name: member for member in archive.getmembers()}
        program = members["Blankwell+.app/Contents/Linux/blankwell-plus"]
        self.assertTrue(program.mode & 0o100)
        self.assertEqual({(member.uid, member.gid) for member in members.values()}, {(0, 0)})
        self.assertEqual({name.split("/")[0] for name in members}, {"Blankwell+.app"})

    def test_the_entry_names_the_archive_with_its_length_and_signature(self):
        archive = pathlib.Path(self.release(self.make_bundle()).stdout.strip())
        item, = self.items()
        enclosure = item.find("enclosure")
        self.assertEqual(item.findtext(SPARKLE + "version"), "2")
        self.assertEqual(item.findtext(SPARKLE + "shortVersionString"), "1.2")
        self.assertEqual(enclosure.get("url"), f"{ADDRESS}/{archive.name}")
        self.assertEqual(enclosure.get("length"), str(archive.stat().st_size))
        self.assertEqual(enclosure.get(SPARKLE + "os"), "linux")
        signature = self.folder / "signature"
        signature.write_bytes(subprocess.run(["base64", "-d"], input=enclosure.get(SPARKLE + "edSignature").encode(),
                                             check=True, capture_output=True).stdout)
        openssl("pkeyutl", "-verify", "-rawin", "-inkey", self.key, "-in", archive, "-sigfile", signature)

    def test_the_newest_release_stands_first_and_the_others_stay(self):
        for version in ("2", "3"):
            self.assertEqual(self.release(self.make_bundle(version)).returncode, 0)
        self.assertEqual([item.findtext(SPARKLE + "version") for item in self.items()], ["3", "2"])

    def test_notes_are_plain_text(self):
        notes = self.folder / "notes"
        notes.write_text("Faster & <better>\n")
        self.release(self.make_bundle(), notes)
        description = self.items()[0].find("description")
        self.assertEqual(description.text, "Faster & <better>\n")
        self.assertEqual(description.get(SPARKLE + "format"), "plain-text")

    def test_the_same_bundle_gives_the_same_archive(self):
        archives = []
        for out in ("first", "second"):
            self.out = self.folder / out
            archives.append(pathlib.Path(self.release(self.make_bundle()).stdout.strip()).read_bytes())
        self.assertEqual(*archives)

    def test_what_nobody_could_update_from_is_refused(self):
        refusals = [
            (self.release(self.make_bundle(), address="http://example.org"), "not an HTTPS address"),
            (self.release(self.make_bundle(SUPublicEDKey="other")), "trusts another key"),
            (self.release(self.make_bundle(version="")), "has no version"),
        ]
        for done, reason in refusals:
            self.assertEqual(done.returncode, 1)
            self.assertIn(reason, done.stderr)
        self.assertFalse(self.out.exists())

    def test_a_release_is_never_replaced(self):
        first = self.release(self.make_bundle())
        before = pathlib.Path(first.stdout.strip()).stat()
        again = self.release(self.make_bundle())
        self.assertIn("there already", again.stderr)
        self.assertEqual(pathlib.Path(first.stdout.strip()).stat(), before)
        self.assertEqual(len(self.items()), 1)


if __name__ == "__main__":
    unittest.main()
