// What happened on the phone before the page came, and what happens as it happens: only the kinds that are asked
// for, and of those what the filter lets through.

const most = 2000; // rows that are kept
const many = 'operation'; // by the thousand: of these only what comes while it is looked at
const usual = ['notification', 'darwin', 'log', 'launch', 'haptic'];

export function makeJournal(panel, connection) {
  panel.innerHTML = `
    <form class="row"><fieldset class="kinds"><legend class="unseen">Kinds</legend></fieldset>
      <label>Filter <input name="filter" autocomplete="off" spellcheck="false" placeholder="part of a line"></label>
      <button type="button" name="clear">Clear</button></form>
    <div class="log" role="log" aria-label="What happens" tabindex="0"></div>`;
  const form = panel.querySelector('form');
  const kinds = panel.querySelector('.kinds');
  const log = panel.querySelector('.log');
  const chosen = new Set(usual);
  let shown = false;

  const ask = (past = false) => connection.send({
    do: 'journal', kinds: [...chosen].filter((kind) => shown || kind !== many), past });
  const matches = (row) => {
    const text = form.elements.filter.value.toLowerCase();
    return text === '' || row.textContent.toLowerCase().includes(text);
  };

  connection.addEventListener('hello', ({ detail }) => {
    kinds.querySelectorAll('label').forEach((label) => label.remove());
    for (const kind of detail.kinds) {
      const label = document.createElement('label');
      const box = Object.assign(document.createElement('input'), {
        type: 'checkbox', name: kind, checked: chosen.has(kind) });
      label.append(box, kind);
      kinds.append(label);
      box.addEventListener('change', () => {
        if (box.checked) chosen.add(kind);
        else chosen.delete(kind);
        ask();
      });
    }
    log.replaceChildren();
    ask(true);
  });

  connection.addEventListener('happened', ({ detail }) => {
    const row = document.createElement('div');
    row.className = detail.kind;
    const kind = Object.assign(document.createElement('span'), { className: 'kind', textContent: detail.kind });
    row.append(kind, ` ${detail.text.trimEnd()}`);
    row.hidden = !matches(row);
    const atEnd = log.scrollHeight - log.scrollTop - log.clientHeight < 40;
    log.append(row);
    while (log.childElementCount > most) log.firstElementChild.remove();
    if (atEnd) log.scrollTop = log.scrollHeight;
  });

  form.addEventListener('submit', (event) => event.preventDefault());
  form.elements.filter.addEventListener('input', () => {
    for (const row of log.children) row.hidden = !matches(row);
  });
  form.elements.clear.addEventListener('click', () => log.replaceChildren());

  return (isShown) => {
    shown = isShown;
    ask();
  };
}
