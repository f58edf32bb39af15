// Asks for what a host can watch and steer: a text that has moved, a search, a cookie.
"use strict";

async function textAt(path, options) {
  try {
    const answer = await fetch(path, options);
    return answer.ok ? (await answer.text()).trim() : `no answer (${answer.status})`;
  } catch (error) {
    return `no answer (${error.message})`;
  }
}

// The host is told the body of a JSON post to an address with this word.
function search(words) {
  return textAt("federated/search", {
    method: "POST",
    headers: { "Content-Type": "application/json" },
    body: JSON.stringify({ query: words }),
  });
}

async function ask() {
  document.cookie = "sample=1";
  const moved = await textAt("moved.txt");
  const found = await search("windows");
  document.getElementById("asked").textContent =
    `a moved text (${moved}), a search (${found}), a cookie (${document.cookie}).`;
}

ask();
