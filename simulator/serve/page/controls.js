// The phone's buttons, and its time. What is a statement of a scenario is sent as that, so that the console
// shows how to do the same by a file.

const portrait = 1, right = 3;

const buttons = [
  { name: 'Home', key: 'h', line: () => 'home' },
  { name: 'Lock', key: 'l', line: (phone) => (phone.locked ? 'unlock' : 'lock'),
    label: (phone) => (phone.locked ? 'Unlock' : 'Lock') },
  { name: 'Turn', key: 'r', line: (phone) => `rotate ${
    phone.orientation === portrait ? 'landscape-right'
      : phone.orientation === right ? 'landscape-left' : 'portrait'}` },
  { name: 'Dark', key: 'a', line: (phone) => `appearance ${phone.dark ? 'light' : 'dark'}`,
    label: (phone) => (phone.dark ? 'Light' : 'Dark') },
  { name: 'Louder', key: '+', line: () => 'volume-key up' },
  { name: 'Softer', key: '-', line: () => 'volume-key down' },
  { name: 'Slow', key: 's', pressed: (phone) => phone.slow,
    request: (phone) => ({ do: 'pace', slow: !phone.slow }) },
  { name: 'Pause', key: ' ', shownKey: 'space', pressed: (phone) => phone.paused,
    request: (phone) => ({ do: 'pace', paused: !phone.paused }) },
  { name: 'Frame on', key: '.', request: () => ({ do: 'pace', step: true }) },
  { name: 'Restart', key: 'x', request: () => ({ do: 'start' }) },
];

const isText = (element) => element.matches('input, textarea, select, [contenteditable]');
const hasOwnKeys = (element) => element.closest('#screen, #workbench, form, button');

export function makeControls(bar, connection) {
  let phone = {};
  const press = (button) =>
    button.line ? connection.say(button.line(phone)) : connection.send(button.request(phone));
  const elements = buttons.map((button) => {
    const element = document.createElement('button');
    element.type = 'button';
    element.id = `press-${button.name.toLowerCase().replace(' ', '-')}`;
    element.textContent = button.name;
    element.title = `${button.name} (${button.shownKey ?? button.key})`;
    element.addEventListener('click', () => press(button));
    bar.append(element);
    return element;
  });
  document.getElementById('home-button').addEventListener('click', () => connection.say('home'));
  document.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey || event.repeat || isText(event.target)) return;
    const button = buttons.find(({ key }) => key === event.key);
    if (!button || (event.key === ' ' && hasOwnKeys(event.target))) return;
    event.preventDefault();
    press(button);
  });
  connection.addEventListener('state', ({ detail }) => {
    phone = detail;
    buttons.forEach((button, index) => {
      if (button.label) elements[index].textContent = button.label(phone);
      if (button.pressed) elements[index].setAttribute('aria-pressed', button.pressed(phone));
    });
  });
}
