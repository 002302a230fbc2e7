"use strict";

// Loads the page again when the server has a new version. Only pages of a server have this script.
{
  const { events: url } = document.currentScript.dataset;
  const RETRY_MS = 5000;
  let events;

  // Browsers allow few connections to a server, so a hidden page has none. When it is shown again,
  // the server compares its version with the current one.
  function listen() {
    if (document.hidden) {
      events?.close();
      events = undefined;
    } else if (events === undefined) {
      events = new EventSource(url);
      events.addEventListener("message", () => location.reload());
      events.addEventListener("error", retry);
    }
  }

  // The browser itself connects again unless the server has refused the connection.
  function retry() {
    if (events?.readyState !== EventSource.CLOSED) return;
    events = undefined;
    setTimeout(listen, RETRY_MS);
  }

  document.addEventListener("visibilitychange", listen);
  listen();
}
