"""The presentation template, read as XML."""

import unittest

import templates
from office_package import NAMESPACES, OfficePackage, relationship_attribute, short_name

PRESENTATION = "/ppt/presentation.xml"
PLACEHOLDER = "p:cSld/p:spTree/p:sp/p:nvSpPr/p:nvPr/p:ph"
FIRST_MASTER_ID = 2 ** 31
SLIDE_IDS = range(256, 2 ** 31)


class PresentationTemplate(unittest.TestCase):
    def setUp(self):
        self.package = OfficePackage(templates.PRESENTATION)
        self.slides = self.listed(PRESENTATION, "p:sldIdLst/p:sldId")
        self.masters = self.listed(PRESENTATION, "p:sldMasterIdLst/p:sldMasterId")
        self.layouts = self.listed(self.masters[0], "p:sldLayoutIdLst/p:sldLayoutId")

    def listed(self, part, path):
        """The parts that a list of identifiers names, in its order."""
        targets = {each.id: each.target for each in self.package.references(part)}
        return [targets[each.get(relationship_attribute("id"))] for each in self.package.find_all(part, path)]

    def placeholders(self, part):
        return {
            (each.get("type", "obj"), each.get("idx", "0")) for each in self.package.find_all(part, PLACEHOLDER)
        }

    def test_it_has_one_slide_with_an_empty_title_and_subtitle(self):
        slide, = self.slides
        self.assertEqual(self.placeholders(slide), {("ctrTitle", "0"), ("subTitle", "1")})
        self.assertEqual(self.package.find_all(slide, ".//a:t"), [])

    def test_the_slide_is_a_title_slide(self):
        layout = self.package.target(self.slides[0], "slideLayout")
        self.assertEqual(layout, self.layouts[0])
        self.assertEqual(self.package.trees[layout].get("type"), "title")

    def test_slides_are_wide(self):
        size = self.package.find(PRESENTATION, "p:sldSz")
        self.assertEqual(int(size.get("cx")) * 9, int(size.get("cy")) * 16)

    def test_the_layouts_are_the_usual_ones(self):
        names = [self.package.find(layout, "p:cSld").get("name") for layout in self.layouts]
        self.assertEqual(names, ["Title Slide", "Title and Content", "Two Content", "Title Only", "Blank"])

    def test_every_placeholder_of_the_slide_is_one_of_its_layouts(self):
        layout = self.package.target(self.slides[0], "slideLayout")
        self.assertLessEqual(self.placeholders(self.slides[0]), self.placeholders(layout))

    def test_every_shape_has_a_place(self):
        """A shape without geometry inherits it from the placeholder of the same role further up."""
        stands_for = {"ctrTitle": "title", "subTitle": "body", "obj": "body"}
        master_roles = {role for role, _ in self.placeholders(self.masters[0])}
        for part in (*self.masters, *self.layouts):
            for shape in self.package.find_all(part, "p:cSld/p:spTree/p:sp"):
                role = shape.find("p:nvSpPr/p:nvPr/p:ph", NAMESPACES).get("type", "obj")
                if shape.find("p:spPr/a:xfrm", NAMESPACES) is None:
                    self.assertNotIn(part, self.masters)
                    self.assertIn(stands_for.get(role, role), master_roles)

    def test_shapes_stand_on_the_slide(self):
        size = self.package.find(PRESENTATION, "p:sldSz")
        for part in (*self.masters, *self.layouts):
            for frame in self.package.find_all(part, ".//a:xfrm"):
                offset, extent = frame
                self.assertLessEqual(int(offset.get("x")) + int(extent.get("cx")), int(size.get("cx")))
                self.assertLessEqual(int(offset.get("y")) + int(extent.get("cy")), int(size.get("cy")))

    def test_master_layouts_and_theme_know_each_other(self):
        master, = self.masters
        for layout in self.layouts:
            self.assertEqual(self.package.target(layout, "slideMaster"), master)
        referred = [each.target for each in self.package.references(master) if each.type == "slideLayout"]
        self.assertCountEqual(referred, self.layouts)
        self.assertEqual(self.package.target(master, "theme"), self.package.target(PRESENTATION, "theme"))

    def test_master_and_layout_numbers_are_unique_and_in_their_range(self):
        elements = self.package.find_all(PRESENTATION, "p:sldMasterIdLst/p:sldMasterId")
        elements += self.package.find_all(self.masters[0], "p:sldLayoutIdLst/p:sldLayoutId")
        numbers = [int(each.get("id")) for each in elements]
        self.assertEqual(len(set(numbers)), len(numbers))
        self.assertGreaterEqual(min(numbers), FIRST_MASTER_ID)
        self.assertLess(max(numbers), 2 ** 32)

    def test_slide_numbers_are_in_their_range(self):
        for each in self.package.find_all(PRESENTATION, "p:sldIdLst/p:sldId"):
            self.assertIn(int(each.get("id")), SLIDE_IDS)

    def test_shape_numbers_are_unique_on_each_page(self):
        for part in (*self.slides, *self.layouts, *self.masters):
            numbers = [each.get("id") for each in self.package.find_all(part, ".//p:cNvPr")]
            self.assertEqual(len(set(numbers)), len(numbers), part)

    def test_the_master_maps_every_colour_to_one_of_the_theme(self):
        theme = self.package.target(PRESENTATION, "theme")
        colours = {short_name(each.tag)[2:] for each in self.package.find(theme, "a:themeElements/a:clrScheme")}
        mapping = self.package.find(self.masters[0], "p:clrMap").attrib
        accents = [f"accent{number}" for number in range(1, 7)]
        self.assertCountEqual(mapping, ["bg1", "tx1", "bg2", "tx2", *accents, "hlink", "folHlink"])
        self.assertCountEqual(mapping.values(), colours)

    def test_the_theme_has_three_of_each_format(self):
        formats = self.package.find(self.package.target(PRESENTATION, "theme"), "a:themeElements/a:fmtScheme")
        counts = {short_name(each.tag): len(each) for each in formats}
        self.assertEqual(
            counts, {"a:fillStyleLst": 3, "a:lnStyleLst": 3, "a:effectStyleLst": 3, "a:bgFillStyleLst": 3}
        )

    def test_the_master_styles_titles_and_every_level_of_text(self):
        styles = self.package.find(self.masters[0], "p:txStyles")
        levels = [f"a:lvl{level}pPr" for level in range(1, 10)]
        self.assertEqual([short_name(each.tag) for each in styles.find("p:titleStyle", NAMESPACES)], levels[:1])
        self.assertEqual([short_name(each.tag) for each in styles.find("p:bodyStyle", NAMESPACES)], levels)

    def test_text_has_no_language(self):
        for part in self.package.parts():
            self.assertNotIn(b"lang=", self.package.contents[part], part)

    def test_its_properties_count_what_it_holds(self):
        hidden = [slide for slide in self.slides if self.package.trees[slide].get("show") == "0"]
        texts = [each.text for slide in self.slides for each in self.package.find_all(slide, ".//a:t")]
        notes = [name for name in self.package.parts() if "notesSlide" in name]
        self.assertEqual(self.package.property("Slides"), str(len(self.slides)))
        self.assertEqual(self.package.property("HiddenSlides"), str(len(hidden)))
        self.assertEqual(self.package.property("Notes"), str(len(notes)))
        self.assertEqual(self.package.property("Words"), str(len(" ".join(texts).split())))
        self.assertEqual(self.package.property("Paragraphs"), str(len(texts)))


if __name__ == "__main__":
    unittest.main()
