"""The browser of tests/browse, and a page in it."""

import json
import os
import subprocess
import tempfile
import time
import unittest

from selenium import webdriver
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

from traces import PAGE


def start_browser(profile):
    options = webdriver.ChromeOptions()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-sync",
                     "--disable-background-networking", "--disable-component-update", "--window-size=1280,900",
                     f"--user-data-dir={profile}"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    return webdriver.Chrome(options=options)


class Page(unittest.TestCase):
    """Each test ends with a look at what the browser has said and asked for."""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.browser = start_browser(cls.folder.name + "/profile")

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.folder.cleanup()

    def setUp(self):
        self.browser.get("about:blank")
        self.browser.get_log("performance")

    def tearDown(self):
        self.assertEqual(self.browser.get_log("browser"), [])
        events = [json.loads(entry["message"])["message"] for entry in self.browser.get_log("performance")]
        asked = {event["params"]["request"]["url"] for event in events if event["method"] == "Network.requestWillBeSent"}
        self.assertLessEqual(asked, {self.address, "about:blank"})

    def open(self, trace, fragment=""):
        self.write_page(trace)
        self.visit(fragment)

    def write_page(self, trace):
        page = f"{self.folder.name}/page.html"
        if os.path.exists(page):
            os.remove(page)
        subprocess.run([PAGE, "-d", trace, page], check=True)
        self.address = f"file://{page}"

    def visit(self, fragment=""):
        self.browser.get("about:blank")
        self.browser.get(self.address + fragment)
        self.wait(lambda: self.all("html[data-ready]"))

    def wait(self, condition):
        WebDriverWait(self.browser, 10, 0.02).until(lambda _: condition())

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def run_script(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def texts(self, selector):
        return self.run_script("return Array.from(document.querySelectorAll(arguments[0]), e => e.textContent)", selector)

    def numbers(self):
        return self.run_script("return Array.from(document.querySelectorAll('#calls tbody tr'), row => row.dataset.call)")

    def rows(self):
        """The list as it is shown, a dictionary a row; "-" where a column is left out."""
        columns = self.texts("#calls th")
        cells = self.texts("#calls tbody td")
        return [dict(zip(columns, cells[at:at + len(columns)])) for at in range(0, len(cells), len(columns))]

    def messages(self):
        return self.run_script("""return Array.from(document.querySelectorAll('#ladder > li[data-message]'),
            ({ dataset }) => [dataset.at, dataset.way, dataset.message])""")

    def unfold_all(self):
        """Report line and text of all that is unfolded in the ladder."""
        self.run_script("document.querySelectorAll('#ladder details').forEach(row => { row.open = true; })")
        self.wait(lambda: not self.all("#ladder details:not(:has(pre))"))
        return self.run_script("""return Array.from(document.querySelectorAll('#ladder > li:has(pre)'),
            row => [Number(row.dataset.at), Array.from(row.querySelectorAll('details > pre'), pre => pre.textContent)])""")


OPEN_CALL = """
const [call, done] = arguments, start = performance.now();
const shown = () => document.querySelector('#ladder > li') ? done((performance.now() - start) / 1000)
                                                           : requestAnimationFrame(shown);
location.hash = `#call-${call}`;
requestAnimationFrame(() => requestAnimationFrame(shown));
"""


def print_times(page, call):
    with tempfile.TemporaryDirectory() as folder:
        browser = start_browser(folder)
        browser.get("about:blank")
        start = time.monotonic()
        browser.get(f"file://{os.path.abspath(page)}")
        assert browser.find_elements(By.CSS_SELECTOR, "html[data-ready]")
        print(f"{time.monotonic() - start:.3f} {browser.execute_async_script(OPEN_CALL, call):.3f}")
        browser.quit()
