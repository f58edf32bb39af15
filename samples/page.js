// Shows that script runs: changes the title, names the engine, writes to the console, answers the form.
"use strict";

const greeting = document.getElementById("greeting");

document.title = "A page in a host's window";
greeting.textContent = "The script has run.";
document.getElementById("agent").textContent = navigator.userAgent;
console.log("The sample page is ready.");

document.getElementById("form").addEventListener("submit", (event) => {
  event.preventDefault();
  const name = new FormData(event.target).get("name").trim();
  greeting.textContent = name ? `Good day, ${name}.` : "Good day, whoever you are.";
});
