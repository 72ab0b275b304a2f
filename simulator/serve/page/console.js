// Statements of a scenario, one at a time: with the ones that were said before (arrow keys) and what may come
// next (tab).

const kept = 'vantori-said';
const mostKept = 200;

function remembered() {
  try {
    return JSON.parse(localStorage.getItem(kept)) ?? [];
  } catch {
    return [];
  }
}

export function makeConsole(panel, connection) {
  panel.innerHTML = `
    <div class="log" role="log" aria-label="What was said" tabindex="0"></div>
    <ul class="choices" hidden></ul>
    <form><label><span>Statement</span>
      <input name="line" autocomplete="off" autocapitalize="off" spellcheck="false"
        placeholder="pull 60 320 over 0.3" aria-describedby="console-help"></label><button>Say</button></form>
    <p id="console-help" class="hint">help lists the statements; arrow up and down: what was said before; tab completes.</p>`;
  const log = panel.querySelector('.log');
  const choices = panel.querySelector('.choices');
  const form = panel.querySelector('form');
  const input = form.elements.line;
  const history = remembered();
  let place = history.length;

  const offer = (words) => {
    choices.replaceChildren(...words.slice(0, 60).map((word) => {
      const item = document.createElement('li');
      item.textContent = word;
      return item;
    }));
    choices.hidden = words.length === 0;
  };

  form.addEventListener('submit', (event) => {
    event.preventDefault();
    const line = input.value.trim();
    if (line === '') return;
    connection.say(line);
    if (history.at(-1) !== line) history.push(line);
    history.splice(0, history.length - mostKept);
    localStorage.setItem(kept, JSON.stringify(history));
    place = history.length;
    input.value = '';
    offer([]);
  });

  const complete = async () => {
    const before = input.value.slice(0, input.selectionStart);
    const rest = input.value.slice(input.selectionStart);
    const start = before.search(/[^\s[\]]*$/);
    const word = before.slice(start);
    const words = await connection.ask({ do: 'complete', before: before.slice(0, start), word });
    if (words.length === 0) return;
    let common = words[0];
    for (const each of words) while (!each.startsWith(common)) common = common.slice(0, -1);
    const full = words.length === 1 ? `${common} ` : common;
    input.value = before.slice(0, start) + full + rest;
    input.setSelectionRange(start + full.length, start + full.length);
    offer(words.length > 1 ? words : []);
  };

  input.addEventListener('keydown', (event) => {
    if (event.key === 'Tab' && !event.shiftKey && input.value !== '') {
      event.preventDefault();
      complete().catch(() => {});
    } else if (event.key === 'ArrowUp' || event.key === 'ArrowDown') {
      event.preventDefault();
      place = Math.min(Math.max(place + (event.key === 'ArrowUp' ? -1 : 1), 0), history.length);
      input.value = history[place] ?? '';
    } else if (event.key === 'Escape') {
      offer([]);
    }
  });

  connection.addEventListener('event', ({ detail }) => {
    if (!['said', 'error', 'lost'].includes(detail.kind)) return;
    const entry = document.createElement('div');
    entry.className = detail.kind;
    if (detail.line) {
      const line = document.createElement('div');
      line.className = 'line';
      line.textContent = detail.line;
      entry.append(line);
    }
    if (detail.text) {
      const text = document.createElement('pre');
      text.textContent = detail.text.replace(/\n$/, '');
      entry.append(text);
    }
    const atEnd = log.scrollHeight - log.scrollTop - log.clientHeight < 40;
    log.append(entry);
    while (log.childElementCount > 1000) log.firstElementChild.remove();
    if (atEnd) log.scrollTop = log.scrollHeight;
  });
}
