"""Looks at the panel in a browser and touches the first key of its menu.

    browser_view.py ADDRESS FOLDER      for packaging/try_browser_view
"""

import base64
import sys
import time
import urllib.error
import urllib.request

from selenium import webdriver
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By

PATIENCE = 30  # seconds for each thing that is waited for
SCREEN = (1280, 1024)  # pixels of the panel
FIRST_KEY = (170, 215)  # middle of the first key of the menu, pixels of the panel


def wait_for(what, condition):
    """The first answer of the condition that is not empty."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = condition()
        if answer:
            return answer
        time.sleep(0.5)
    sys.exit(f"waited in vain for {what}")


def answers(address):
    try:
        return urllib.request.urlopen(address + "/vnc.html").status == 200
    except (urllib.error.URLError, ConnectionError):
        return False


def picture(browser):
    """The panel as the viewer shows it, nothing while it shows one colour only."""
    canvases = browser.find_elements(By.CSS_SELECTOR, "#noVNC_container canvas")
    if not canvases or canvases[0].size["width"] < 100:
        return None
    data = browser.execute_script("return arguments[0].toDataURL('image/png')", canvases[0])
    image = base64.b64decode(data.split(",", 1)[1])
    return image if len(image) > 20_000 else None


def main(address, folder):
    options = webdriver.ChromeOptions()
    for option in ("--headless=new", "--no-sandbox", "--window-size=1400,1200", "--disable-gpu"):
        options.add_argument(option)
    wait_for("the view", lambda: answers(address))
    browser = webdriver.Chrome(options=options)
    try:
        browser.get(address + "/vnc.html?autoconnect=true&resize=off&reconnect=true&reconnect_delay=500")
        wait_for("the panel", lambda: picture(browser))
        time.sleep(2)  # until the menu is drawn to its end
        menu = picture(browser)
        canvas = browser.find_element(By.CSS_SELECTOR, "#noVNC_container canvas")
        # Places count from the middle of the canvas.
        ActionChains(browser).move_to_element_with_offset(
            canvas, FIRST_KEY[0] - SCREEN[0] // 2, FIRST_KEY[1] - SCREEN[1] // 2).click().perform()

        def changed():
            now = picture(browser)
            return now if now and abs(len(now) - len(menu)) > 5_000 else None

        page = wait_for("the page behind the touched key", changed)
        time.sleep(2)
        page = picture(browser) or page
    finally:
        browser.quit()
    for name, image in (("menu.png", menu), ("page.png", page)):
        with open(f"{folder}/{name}", "wb") as file:
            file.write(image)
    print(f"The touch opened another page; pictures are in {folder}")


if __name__ == "__main__":
    main(*sys.argv[1:])
