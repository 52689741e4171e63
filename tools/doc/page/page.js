// The search of the page of `doc page`. Without it the page shows all options.
"use strict";

(() => {
  const form = document.getElementById("~form");
  const search = document.getElementById("~search");
  const status = document.getElementById("~status");
  const main = document.getElementById("~options");
  const none = document.getElementById("~none");
  const groups = [...document.querySelectorAll(".group")].map((element) => ({
    element,
    link: document.querySelector(`nav a[href="#${element.id}"]`).parentElement,
  }));
  const options = [...document.querySelectorAll(".option")].map((element) => ({
    element,
    text: [...element.querySelectorAll(".find")].map((part) => part.textContent).join("\n").toLowerCase(),
  }));

  // Shows the options that hold all words of the search.
  const filter = () => {
    const words = search.value.toLowerCase().split(/\s+/).filter((word) => word !== "");
    let shown = 0;
    for (const { element, text } of options) {
      const matches = words.every((word) => text.includes(word));
      element.classList.toggle("out", !matches);
      if (matches) ++shown;
    }
    for (const { element, link } of groups) {
      const count = element.querySelectorAll(".option:not(.out)").length;
      element.classList.toggle("out", count === 0);
      link.classList.toggle("out", count === 0);
      link.querySelector("span").textContent = count;
    }
    document.querySelector(".notes").classList.toggle("out", words.length > 0);
    none.hidden = shown > 0;
    status.textContent = words.length > 0 ? `${shown} of ${options.length}` : "";
  };

  const clear = () => {
    search.value = "";
    filter();
  };

  // Shows the element that the address names if the search hides it. Otherwise the browser has shown it.
  const open = () => {
    const target = document.getElementById(location.hash.slice(1));
    if (target === null || target.closest(".out") === null) return;
    clear();
    target.scrollIntoView();
  };

  search.addEventListener("input", () => {
    filter();
    if (search.value !== "") main.scrollIntoView();
  });
  // The return key goes to the first match.
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    const first = options.find(({ element }) => !element.classList.contains("out"));
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
      clear();
    }
  });
  addEventListener("hashchange", open);

  form.hidden = false;
  filter();  // the browser may have restored the search with the page
  open();
})();
