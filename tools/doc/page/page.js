// The search of the page of `doc page`, addresses, buttons that copy a line, and the mark of the current group.
// Without it the page shows all options.
"use strict";

(() => {
  const form = document.getElementById("~form");
  const search = document.getElementById("~search");
  const status = document.getElementById("~status");
  const main = document.getElementById("~options");
  const none = document.getElementById("~none");
  const side = document.querySelector(".side");
  const groups = [...document.querySelectorAll(".group")].map((element) => ({
    element,
    link: document.querySelector(`nav a[href="#${element.id}"]`),
  }));
  const index = document.querySelector(".index");
  // The parts that the contents list.
  const parts = [...groups, { element: index, link: document.querySelector(`nav a[href="#${index.id}"]`) }];
  // Upper and lower case are the same, and so are blank, hyphen and underscore.
  const folded = (text) => text.toLowerCase().replace(/[-_ \t]/g, "_");
  const options = [...document.querySelectorAll(".option")].map((element) => ({
    element,
    names: [...element.querySelectorAll("h3, .also code")].map((part) => folded(part.textContent)),
    text: [...element.querySelectorAll(".find")].map((part) => folded(part.textContent)).join("\n"),
  }));

  // The number of edits that turn the word into a part of the name. An edit inserts, deletes or replaces a
  // character, or swaps two.
  const distance = (word, name) => {
    let above = [];
    let last = new Array(name.length + 1).fill(0);
    for (let i = 1; i <= word.length; ++i) {
      const row = [i];
      for (let j = 1; j <= name.length; ++j) {
        const same = word[i - 1] === name[j - 1];
        row[j] = Math.min(last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0 : 1));
        if (i > 1 && j > 1 && word[i - 1] === name[j - 2] && word[i - 2] === name[j - 1])
          row[j] = Math.min(row[j], above[j - 2] + 1);
      }
      above = last;
      last = row;
    }
    return Math.min(...last);
  };

  // The options whose names are most like the word, with at most one edit for every four characters.
  const similar = (word) => {
    let least = Math.floor(word.length / 4);
    let found = [];
    for (const option of least > 0 ? options : []) {
      const edits = Math.min(...option.names.map((name) => distance(word, name)));
      if (edits < least) found = [];
      if (edits <= least) found.push(option);
      least = Math.min(least, edits);
    }
    return found;
  };

  const isout = ({ element }) => element.classList.contains("out");

  // Shows the options that hold all words of the search, or else those with similar names.
  const filter = () => {
    const words = search.value.split(/\s+/).filter((word) => word !== "").map(folded);
    const found = options.filter(({ text }) => words.every((word) => text.includes(word)));
    const near = found.length === 0 ? similar(words.join("_")) : [];
    const shown = new Set(found.length > 0 ? found : near);
    for (const option of options) option.element.classList.toggle("out", !shown.has(option));
    for (const { element, link } of groups) {
      const count = element.querySelectorAll(".option:not(.out)").length;
      element.classList.toggle("out", count === 0);
      link.parentElement.classList.toggle("out", count === 0);
      link.querySelector("span").textContent = count;
    }
    for (const part of [document.querySelector(".notes"), index])
      part.classList.toggle("out", words.length > 0);
    none.hidden = found.length > 0;
    none.textContent = near.length > 0 ? "No option matches. Similar names:" : "No option matches.";
    status.textContent = words.length > 0 ? `${found.length} of ${options.length}` : "";
    mark();
  };

  // ---- the search in the address, as in page.html?q=gap+limit

  let waiting = 0;
  const keepaddress = () => {
    clearTimeout(waiting);
    waiting = setTimeout(() => {
      const address = new URL(location.href);
      if (search.value.trim() === "") address.searchParams.delete("q");
      else address.searchParams.set("q", search.value.trim());
      if (search.value.trim() !== "") address.hash = "";
      if (address.href === location.href) return;
      try {
        history.replaceState(null, "", address);
      } catch (error) {
        // some browsers refuse this for files, or many times in a short time
        if (error.name !== "SecurityError") throw error;
      }
    }, 300);
  };

  const searchfor = (text) => {
    search.value = text;
    filter();
    keepaddress();
  };

  // The elements by their anchors. Groups have their names, too, if no option has them.
  const anchors = new Map();
  const addanchor = (name, id) => {
    if (!anchors.has(folded(name))) anchors.set(folded(name), id);
  };
  for (const kind of [".option", ".also code", ".group, .index"])
    for (const { id } of document.querySelectorAll(kind)) addanchor(id, id);
  for (const { element } of groups) addanchor(element.id.replace(/^group-/, ""), element.id);

  // Shows the element that the address names. Upper and lower case are the same. An address that names nothing
  // is searched for.
  const open = () => {
    const hash = new URLSearchParams("name=" + location.hash.slice(1).replace(/[+&]/g, encodeURIComponent));
    const wanted = hash.get("name");
    if (wanted === "") return;
    const id = document.getElementById(wanted) === null ? anchors.get(folded(wanted)) : wanted;
    if (id === undefined) {
      searchfor(wanted);
      return;
    }
    const target = document.getElementById(id);
    const hidden = target.closest(".out") !== null;
    if (hidden) searchfor("");
    if (id !== wanted) location.replace("#" + id);
    else if (hidden) target.scrollIntoView();  // otherwise the browser has shown it
    mark();
  };

  // ---- the mark of the current group

  // The part at the top of the window. At the end of the page, the part that the address names, or the last.
  const current = () => {
    const shown = parts.filter((part) => !isout(part));
    const top = ({ element }) => element.getBoundingClientRect().top;
    if (scrollY > 0 && scrollY + innerHeight >= document.documentElement.scrollHeight - 2) {
      const target = document.querySelector(":target");
      const named = shown.find(({ element }) => element.contains(target));
      return named !== undefined && top(named) >= 0 ? named : shown.at(-1);
    }
    return shown.findLast((part) => top(part) <= innerHeight / 4) ?? shown[0];
  };

  const mark = () => {
    const now = current();
    for (const part of parts)
      if (part === now) part.link.setAttribute("aria-current", "true");
      else part.link.removeAttribute("aria-current");
    if (now === undefined) return;
    const link = now.link.getBoundingClientRect();
    const box = side.getBoundingClientRect();
    if (link.top < box.top) side.scrollTop -= box.top - link.top;
    else if (link.bottom > box.bottom) side.scrollTop += link.bottom - box.bottom;
  };

  let frame = 0;
  for (const event of ["scroll", "resize"])
    addEventListener(event, () => {
      cancelAnimationFrame(frame);
      frame = requestAnimationFrame(mark);
    }, { passive: true });

  // ---- buttons that copy a line of an option file

  // Pages that are not served securely may not use the clipboard, but may copy what is selected.
  const copy = async (text) => {
    if (navigator.clipboard !== undefined) return navigator.clipboard.writeText(text);
    const area = document.createElement("textarea");
    area.value = text;
    document.body.append(area);
    area.select();
    const copied = document.execCommand("copy");
    area.remove();
    if (!copied) throw new Error("not copied");
  };

  const addbutton = (element, line) => {
    const button = document.createElement("button");
    button.type = "button";
    button.textContent = "Copy";
    button.title = `Copy ${line()}`;
    button.addEventListener("click", async () => {
      const said = await copy(line()).then(() => "Copied", () => "Not copied");
      button.textContent = said;
      button.focus();
      setTimeout(() => { button.textContent = "Copy"; }, 2000);
    });
    element.append(button);
    return button;
  };

  // The value of the line can be changed before the line is copied, also with the return key.
  for (const element of document.querySelectorAll(".ready")) {
    const button = addbutton(element.parentElement, () => element.textContent.replace(/\s+/g, " ").trim());
    const value = element.querySelector("span");
    value?.setAttribute("contenteditable", "plaintext-only");
    value?.setAttribute("spellcheck", "false");
    value?.setAttribute("role", "textbox");
    value?.setAttribute("aria-label", "Value");
    value?.addEventListener("keydown", (event) => {
      event.stopPropagation();  // these keys are not those of the page
      if (event.key !== "Enter") return;
      event.preventDefault();
      button.click();
    });
  }
  for (const element of document.querySelectorAll("[data-line]"))
    addbutton(element, () => element.dataset.line);

  // ---- keys

  search.addEventListener("input", () => {
    filter();
    keepaddress();
    if (search.value !== "") main.scrollIntoView();
  });
  // The return key goes to the first match.
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    const first = options.find((option) => !isout(option));
    if (first !== undefined && search.value !== "") first.element.querySelector("h3 a").click();
  });
  document.addEventListener("keydown", (event) => {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    if (event.key === "/" && document.activeElement !== search) {
      event.preventDefault();
      search.focus();
      search.select();
    } else if (event.key === "Escape") {
      if (search.value === "") search.blur();
      searchfor("");
    }
  });
  addEventListener("hashchange", open);

  form.hidden = false;
  const asked = new URLSearchParams(location.search).get("q");
  if (asked !== null) search.value = asked;  // otherwise the browser may have restored the search
  filter();
  open();
})();
